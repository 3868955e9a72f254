#include "calc/family_series.h"

#include <array>
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
    Result<OutputFile> created = OutputFile::Create(entry.path);
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

}  // namespace vistaplot
