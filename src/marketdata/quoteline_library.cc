#include "marketdata/quoteline_library.h"

#include "quoteline/quoteline.h"

namespace vistaplot {

QuotelineLibrary::QuotelineLibrary(const std::string& directory) {
  if (!directory.empty()) {
    ::QLsetDirectory(directory.c_str());
  }
}

QuotelineLibrary::~QuotelineLibrary() {
  ::QLclose();
}

std::int32_t QuotelineLibrary::QLopen() {
  return ::QLopen();
}

std::int32_t QuotelineLibrary::QLrebuildSymbols() {
  return ::QLrebuildSymbols();
}

std::int32_t QuotelineLibrary::QLgetPathSize() {
  return ::QLgetPathSize();
}

std::int32_t QuotelineLibrary::QLgetQLDir(char* path) {
  return ::QLgetQLDir(path);
}

std::int32_t QuotelineLibrary::QLgetMaxDays() {
  return ::QLgetMaxDays();
}

std::int32_t QuotelineLibrary::QLgetMaxNumDays() {
  return ::QLgetMaxNumDays();
}

std::int32_t QuotelineLibrary::QLgetJulian(std::int32_t day) {
  return ::QLgetJulian(day);
}

std::int32_t QuotelineLibrary::QLgetSymSize() {
  return ::QLgetSymSize();
}

std::int32_t QuotelineLibrary::QLgetNameSize() {
  return ::QLgetNameSize();
}

std::int32_t QuotelineLibrary::QLgetIssueIter() {
  return ::QLgetIssueIter();
}

std::int16_t QuotelineLibrary::QLissueNext(std::int32_t iterator, char* symbol) {
  return ::QLissueNext(iterator, symbol);
}

std::int32_t QuotelineLibrary::QLcloseIssueIter(std::int32_t iterator) {
  return ::QLcloseIssueIter(iterator);
}

std::int16_t QuotelineLibrary::QLisQLIssue(const char* symbol) {
  return ::QLisQLIssue(symbol);
}

std::int32_t QuotelineLibrary::QLgetIssueName(const char* symbol, char* name) {
  return ::QLgetIssueName(symbol, name);
}

std::int32_t QuotelineLibrary::QLgetStartDateBySym(const char* symbol) {
  return ::QLgetStartDateBySym(symbol);
}

std::int32_t QuotelineLibrary::QLgetIssue(const char* symbol, float* element_zero) {
  return ::QLgetIssue(symbol, element_zero);
}

}  // namespace vistaplot
