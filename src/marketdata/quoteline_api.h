// The market-data service's functions as an object, so that the program can run on a service made
// for a test as well as on the real one. Meanings, units and statuses: quoteline/quoteline.h.
#pragma once

#include <cstdint>

namespace vistaplot {

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

}  // namespace vistaplot
