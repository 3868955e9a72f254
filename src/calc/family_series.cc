#include "calc/family_series.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "calc/fnu_series.h"
#include "formats/fnu_file.h"

namespace vistaplot {

namespace {

struct SeriesFile {
  FamilySeriesStep step;
  const std::string& path;
  std::string_view symbol;
  std::string_view title;
  OutputFile file = {};
};

void AppendCounts(std::string& bytes,
                  const MarketCalendar& calendar,
                  const std::vector<int>& counts) {
  if (counts.empty()) return;
  AppendFnuDays(bytes, calendar, 2, std::vector<float>(counts.begin() + 1, counts.end()));
}

/// Those that were made take their names also when a later one fails.
std::optional<FamilySeriesFailure> Finish(std::array<SeriesFile, 3>& files) {
  std::optional<FamilySeriesFailure> first;
  for (SeriesFile& entry : files) {
    const Status finished = entry.file.Finish();
    if (!finished && !first) first = {FamilySeriesStep::kDecliners, finished.Error()};
  }
  return first;
}

}  // namespace

std::optional<FamilySeriesFailure> WriteFamilySeries(const FamilySeriesTarget& target,
                                                     const MarketCalendar& calendar,
                                                     const FamilyBreadth& breadth) {
  std::array<SeriesFile, 3> files{{
      {FamilySeriesStep::kLine, target.line_path, target.symbol, target.title},
      {FamilySeriesStep::kAdvancers, target.advancers_path, kAdvancersSymbol, kAdvancersTitle},
      {FamilySeriesStep::kDecliners, target.decliners_path, kDeclinersSymbol, kDeclinersTitle},
  }};
  for (SeriesFile& entry : files) {
    const bool is_line = entry.step != FamilySeriesStep::kLine && entry.path == target.line_path;
    Result<OutputFile> created =
        is_line ? MakeError(kErrorFileAlreadyOpen, entry.path) : OutputFile::Create(entry.path);
    if (!created) {
      static_cast<void>(Finish(files));
      return FamilySeriesFailure{entry.step, created.Error()};
    }
    entry.file = std::move(created.Value());
    AppendFnuTitle(entry.file.Bytes(), entry.symbol, entry.title);
  }
  AppendFnuDays(files[0].file.Bytes(), calendar, 1, breadth.line);
  AppendCounts(files[1].file.Bytes(), calendar, breadth.advancers);
  AppendCounts(files[2].file.Bytes(), calendar, breadth.decliners);
  return Finish(files);
}

namespace {

constexpr float kHadPriceAbove = -0.5F;

/// Adds one member, whose prices are indexed by market day, to the counts of days 2 and on.
void AddMember(std::span<const float> prices, FamilyBreadth& breadth) {
  const std::size_t days = breadth.advancers.size();
  int* const advancers = breadth.advancers.data();
  int* const decliners = breadth.decliners.data();
  const float* const price = prices.data() + 1;
  for (std::size_t i = 1; i < days; ++i) {
    const int had_price = price[i - 1] > kHadPriceAbove ? 1 : 0;
    advancers[i] += had_price & (price[i] > price[i - 1] ? 1 : 0);
    decliners[i] += had_price & (price[i] < price[i - 1] ? 1 : 0);
  }
}

}  // namespace

std::vector<float> AdvanceDeclineLine(std::span<const float> advancers,
                                      std::span<const float> decliners) {
  std::vector<float> line(std::min(advancers.size(), decliners.size()));
  float sum = 0.0F;
  for (std::size_t i = 0; i < line.size(); ++i) {
    sum = sum + advancers[i] - decliners[i];
    line[i] = sum;
  }
  return line;
}

FamilyBreadth CountFamilyBreadth(const FamilyRecords& records) {
  const auto days = static_cast<std::size_t>(records.Days());
  FamilyBreadth breadth{std::vector<int>(days), std::vector<int>(days), std::vector<float>(days)};
  for (int member = 1; member <= records.Count(); ++member) {
    AddMember(records.Prices(member), breadth);
  }
  float sum = 0.0F;
  for (std::size_t i = 1; i < days; ++i) {
    sum = sum + static_cast<float>(breadth.advancers[i]) - static_cast<float>(breadth.decliners[i]);
    breadth.line[i] = sum;
  }
  return breadth;
}

}  // namespace vistaplot
