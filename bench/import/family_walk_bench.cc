// The inner loop of the family summary: growth, peak and draw-down of every issue, day by day.
#include <benchmark/benchmark.h>

#include <cstddef>

#include "import/family_records.h"
#include "price_walk.h"

namespace vistaplot::bench {
namespace {

FamilyRecords FilledRecords(int issues, int days) {
  FamilyRecords records;
  records.Resize(issues, days);
  for (int issue = 0; issue < issues; ++issue) {
    const auto cents = WalkPrices(issue, days, kSeed);
    const auto prices = records.Prices(issue + 1);
    for (std::size_t day = 0; day < cents.size(); ++day) {
      prices[day + 1] = cents[day] == 0 ? -1.0F : static_cast<float>(cents[day]) / 100.0F;
    }
  }
  return records;
}

void WalkOf255IssuesOf12000Days(benchmark::State& state) {
  const FamilyRecords records = FilledRecords(kIssues, kDays);
  for (auto _ : state) {
    benchmark::DoNotOptimize(WalkGrowth(records, 1, kDays));
  }
}
BENCHMARK(WalkOf255IssuesOf12000Days)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vistaplot::bench
