#include "quoteline/quoteline.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/host_path.h"
#include "base/text.h"
#include "quoteline/service.h"
#include "quoteline/store_contents.h"

namespace {

using vistaplot::KeyOf;
using vistaplot::Service;
using vistaplot::SymbolKey;

constexpr std::size_t kSymbolBuffer = vistaplot::kSymbolLength + 1;
constexpr std::size_t kNameBuffer = 81;
constexpr std::size_t kLeastPathBuffer = 260;

struct Iteration {
  std::vector<SymbolKey> symbols;
  std::size_t next = 0;
};

// What plain functions without a handle have to keep between calls.
struct OpenService {
  std::string directory;  // empty: the default one
  std::unique_ptr<Service> service;
  std::map<std::int32_t, Iteration> iterations;
  std::int32_t last_iterator = 0;
};

OpenService& Current() {
  static OpenService current;
  return current;
}

std::string ChosenDirectory() {
  const std::string& named = Current().directory;
  return named.empty() ? vistaplot::DefaultServiceFolder() : named;
}

void WriteText(std::string_view text, std::size_t buffer_size, char* buffer) {
  text = text.substr(0, buffer_size - 1);
  std::memcpy(buffer, text.data(), text.size());
  buffer[text.size()] = '\0';
}

// The issue that a caller's text names: it ends in a zero byte or in blanks.
std::optional<vistaplot::IssueSummary> FindIssue(const char* symbol) {
  Service* service = Current().service.get();
  if (service == nullptr || symbol == nullptr) return std::nullopt;
  const auto key = KeyOf({symbol, ::strnlen(symbol, kSymbolBuffer)});
  return key ? service->Find(*key) : std::nullopt;
}

std::int32_t NumberOfDays() {
  const Service* service = Current().service.get();
  return service == nullptr ? QL_NO_DATABASE : static_cast<std::int32_t>(service->Days().size());
}

}  // namespace

extern "C" {

void QLsetDirectory(const char* directory) {
  Current().directory = directory == nullptr ? "" : directory;
}

std::int32_t QLopen() {
  QLclose();
  auto opened = Service::Open(ChosenDirectory());
  if (!opened) return opened.Error().number;
  Current().service = std::move(opened.Value());
  return 0;
}

std::int32_t QLclose() {
  Current().iterations.clear();
  Current().service.reset();
  return 0;
}

std::int32_t QLrebuildSymbols() {
  QLclose();
  {
    auto database = vistaplot::OpenStore(ChosenDirectory(), vistaplot::Access::kWrite);
    if (!database) return database.Error().number;
    const auto rebuilt = vistaplot::RebuildStore(database.Value());
    if (!rebuilt) return rebuilt.Error().number;
  }
  return QLopen();
}

std::int32_t QLgetPathSize() {
  const Service* service = Current().service.get();
  const std::size_t needed = service == nullptr ? 0 : service->Directory().size() + 1;
  return static_cast<std::int32_t>(std::max(needed, kLeastPathBuffer));
}

std::int32_t QLgetQLDir(char* path) {
  const Service* service = Current().service.get();
  if (service == nullptr) return QL_NO_DATABASE;
  WriteText(service->Directory(), service->Directory().size() + 1, path);
  return 0;
}

std::int32_t QLgetMaxDays() {
  Service* service = Current().service.get();
  if (service == nullptr) return QL_NO_DATABASE;
  if (auto refreshed = service->Refresh(); !refreshed) return refreshed.Error().number;
  return NumberOfDays();
}

std::int32_t QLgetMaxNumDays() {
  return NumberOfDays();
}

std::int32_t QLgetNumDays() {
  return NumberOfDays();
}

std::int32_t QLgetJulian(std::int32_t day) {
  const std::int32_t count = NumberOfDays();
  if (count < 0) return count;
  if (day < 1 || day > count) return QL_OUT_OF_BOUNDS;
  return Current().service->Days()[static_cast<std::size_t>(day - 1)];
}

std::int32_t QLgetMarketDay(std::int32_t serial) {
  if (NumberOfDays() < 0) return QL_NO_DATABASE;
  const auto& days = Current().service->Days();
  const auto found = std::lower_bound(days.begin(), days.end(), serial);
  if (found == days.end() || *found != serial) return QL_OUT_OF_BOUNDS;
  return static_cast<std::int32_t>(found - days.begin()) + 1;
}

std::int32_t QLgetSymSize() {
  return kSymbolBuffer;
}

std::int32_t QLgetNameSize() {
  return kNameBuffer;
}

std::int32_t QLgetNumSyms() {
  Service* service = Current().service.get();
  if (service == nullptr) return QL_NO_DATABASE;
  return static_cast<std::int32_t>(service->List().size());
}

std::int32_t QLgetIssueIter() {
  OpenService& current = Current();
  if (current.service == nullptr) return QL_NO_DATABASE;
  Iteration iteration;
  for (const auto& issue : current.service->List()) iteration.symbols.push_back(issue.symbol);
  ++current.last_iterator;
  current.iterations[current.last_iterator] = std::move(iteration);
  return current.last_iterator;
}

std::int16_t QLissueNext(std::int32_t iterator, char* symbol) {
  auto& iterations = Current().iterations;
  const auto found = iterations.find(iterator);
  if (found == iterations.end()) return 0;
  Iteration& iteration = found->second;
  if (iteration.next == iteration.symbols.size()) return 0;
  WriteText(vistaplot::SymbolText(iteration.symbols[iteration.next]), kSymbolBuffer, symbol);
  ++iteration.next;
  return -1;
}

std::int32_t QLcloseIssueIter(std::int32_t iterator) {
  return Current().iterations.erase(iterator) == 0 ? QL_OUT_OF_BOUNDS : 0;
}

std::int16_t QLisQLIssue(const char* symbol) {
  return FindIssue(symbol) ? -1 : 0;
}

std::int32_t QLgetIssueName(const char* symbol, char* name) {
  if (Current().service == nullptr) return QL_NO_DATABASE;
  const auto issue = FindIssue(symbol);
  if (!issue) return QL_NO_SUCH_ISSUE;
  WriteText(issue->name.empty() ? vistaplot::SymbolText(issue->symbol)
                                : vistaplot::Windows1252FromUtf8(issue->name),
            kNameBuffer,
            name);
  return 0;
}

std::int32_t QLgetStartDateBySym(const char* symbol) {
  if (Current().service == nullptr) return QL_NO_DATABASE;
  const auto issue = FindIssue(symbol);
  return issue ? issue->first_day : 0;
}

std::int32_t QLgetMaxDaysBySym(const char* symbol) {
  if (Current().service == nullptr) return QL_NO_DATABASE;
  const auto issue = FindIssue(symbol);
  return issue ? issue->last_day : 0;
}

std::int32_t QLgetIssue(const char* symbol, float* element_zero) {
  Service* service = Current().service.get();
  if (service == nullptr) return QL_NO_DATABASE;
  if (symbol == nullptr || element_zero == nullptr) return QL_GENERAL_FAILURE;
  const auto key = KeyOf({symbol, ::strnlen(symbol, kSymbolBuffer)});
  return key ? service->Fetch(*key, element_zero) : QL_NO_SUCH_ISSUE;
}

}  // extern "C"
