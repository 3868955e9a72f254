// A market-data service made of a few vectors, for tests.
#pragma once

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/date.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot::test {

struct FakeIssue {
  std::string name;
  int start = 1;              ///< first market day with a price; 0 or less: unknown
  std::vector<float> prices;  ///< of market days start, start + 1, ...
  std::int32_t status = 0;    ///< of QLgetIssue
};

/// Issues come in ascending order of symbol. Members may be set at any time.
class FakeQuoteline : public QuotelineApi {
 public:
  std::vector<DateSerial> dates;  ///< of market day 1, 2, ...
  std::map<std::string, FakeIssue, std::less<>> issues;
  std::string directory = "C:\\QL";
  std::int32_t open_status = 0;
  std::int32_t rebuild_status = 0;
  std::int32_t directory_status = 0;
  std::int32_t max_days_status = 0;  ///< below 0: returned instead of the count
  int rebuilds = 0;
  int open_iterators = 0;

  void AddIssue(const std::string& symbol, std::vector<float> prices, int start = 1) {
    issues[symbol] = {"Name of " + symbol, start, std::move(prices), 0};
  }

  /// Consecutive dates from `first` on, one a market day.
  void SetDays(DateSerial first, int count) {
    dates.clear();
    for (int day = 0; day < count; ++day) {
      dates.push_back(first + day);
    }
  }

  std::int32_t QLopen() override { return open_status; }
  std::int32_t QLrebuildSymbols() override {
    ++rebuilds;
    return rebuild_status;
  }
  std::int32_t QLgetPathSize() override { return 40; }
  std::int32_t QLgetQLDir(char* path) override {
    if (directory_status >= 0) {
      std::memcpy(path, directory.c_str(), directory.size() + 1);
    }
    return directory_status;
  }
  std::int32_t QLgetMaxDays() override { return max_days_status < 0 ? max_days_status : Days(); }
  std::int32_t QLgetMaxNumDays() override { return Days(); }
  std::int32_t QLgetJulian(std::int32_t day) override {
    return day >= 1 && day <= Days() ? dates[static_cast<std::size_t>(day - 1)] : -8;
  }
  std::int32_t QLgetSymSize() override { return 6; }
  std::int32_t QLgetNameSize() override { return 64; }
  std::int32_t QLgetIssueIter() override {
    next_ = issues.begin();
    return ++open_iterators;
  }
  std::int16_t QLissueNext(std::int32_t /*iterator*/, char* symbol) override {
    if (next_ == issues.end()) {
      return 0;
    }
    std::memcpy(symbol, next_->first.c_str(), next_->first.size() + 1);
    ++next_;
    return -1;
  }
  std::int32_t QLcloseIssueIter(std::int32_t /*iterator*/) override {
    --open_iterators;
    return 0;
  }
  std::int16_t QLisQLIssue(const char* symbol) override { return Find(symbol) ? -1 : 0; }
  std::int32_t QLgetIssueName(const char* symbol, char* name) override {
    const FakeIssue* issue = Find(symbol);
    if (issue == nullptr) {
      return -5;
    }
    std::memcpy(name, issue->name.c_str(), issue->name.size() + 1);
    return 0;
  }
  std::int32_t QLgetStartDateBySym(const char* symbol) override {
    const FakeIssue* issue = Find(symbol);
    return issue == nullptr ? 0 : issue->start;
  }
  std::int32_t QLgetIssue(const char* symbol, float* element_zero) override {
    const FakeIssue* issue = Find(symbol);
    if (issue == nullptr) {
      return -5;
    }
    std::memcpy(element_zero + (issue->start > 0 ? issue->start : 1),
                issue->prices.data(),
                issue->prices.size() * sizeof(float));
    return issue->status;
  }

 private:
  std::int32_t Days() const { return static_cast<std::int32_t>(dates.size()); }
  const FakeIssue* Find(std::string_view symbol) const {
    const auto found = issues.find(symbol);
    return found == issues.end() ? nullptr : &found->second;
  }

  std::map<std::string, FakeIssue, std::less<>>::const_iterator next_;
};

}  // namespace vistaplot::test
