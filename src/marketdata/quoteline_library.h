// The market-data service itself behind QuotelineApi: each call goes to the C function of the same
// name.
#pragma once

#include <cstdint>
#include <string>

#include "marketdata/quoteline_api.h"

namespace vistaplot {

/// One at a time: the service behind it is one for the whole process. Closed with the object.
class QuotelineLibrary final : public QuotelineApi {
 public:
  /// Names the service's directory for the coming QLopen. Empty: the service's own choice.
  explicit QuotelineLibrary(const std::string& directory = {});
  ~QuotelineLibrary() override;
  QuotelineLibrary(const QuotelineLibrary&) = delete;
  QuotelineLibrary& operator=(const QuotelineLibrary&) = delete;

  std::int32_t QLopen() override;
  std::int32_t QLrebuildSymbols() override;
  std::int32_t QLgetPathSize() override;
  std::int32_t QLgetQLDir(char* path) override;
  std::int32_t QLgetMaxDays() override;
  std::int32_t QLgetMaxNumDays() override;
  std::int32_t QLgetJulian(std::int32_t day) override;
  std::int32_t QLgetSymSize() override;
  std::int32_t QLgetNameSize() override;
  std::int32_t QLgetIssueIter() override;
  std::int16_t QLissueNext(std::int32_t iterator, char* symbol) override;
  std::int32_t QLcloseIssueIter(std::int32_t iterator) override;
  std::int16_t QLisQLIssue(const char* symbol) override;
  std::int32_t QLgetIssueName(const char* symbol, char* name) override;
  std::int32_t QLgetStartDateBySym(const char* symbol) override;
  std::int32_t QLgetIssue(const char* symbol, float* element_zero) override;
};

}  // namespace vistaplot
