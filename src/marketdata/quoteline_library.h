// The market-data service itself behind QuotelineApi: each call goes to the C function of the same
// name.
#pragma once

#include <cstdint>
#include <string>

namespace vistaplot {

// The market-data service's functions as an object, so that the program can run on a service made
// for a test as well as on the real one. Meanings, units and statuses: quoteline/quoteline.h.

class QuotelineApi {
 public:
  virtual ~QuotelineApi() = default;

  virtual std::int32_t QLopen() = 0;
  virtual std::int32_t QLrebuildSymbols() = 0;
  virtual std::int32_t QLgetPathSize() = 0;
  virtual std::int32_t QLgetQLDir(char* path) = 0;
  virtual std::int32_t QLgetMaxDays() = 0;
  virtual std::int32_t QLgetMaxNumDays() = 0;
  virtual std::int32_t QLgetJulian(std::int32_t day) = 0;
  virtual std::int32_t QLgetSymSize() = 0;
  virtual std::int32_t QLgetNameSize() = 0;
  virtual std::int32_t QLgetIssueIter() = 0;
  virtual std::int16_t QLissueNext(std::int32_t iterator, char* symbol) = 0;
  virtual std::int32_t QLcloseIssueIter(std::int32_t iterator) = 0;
  virtual std::int16_t QLisQLIssue(const char* symbol) = 0;
  virtual std::int32_t QLgetIssueName(const char* symbol, char* name) = 0;
  virtual std::int32_t QLgetStartDateBySym(const char* symbol) = 0;
  virtual std::int32_t QLgetIssue(const char* symbol, float* element_zero) = 0;
};

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
