#include "calc/fnu_series.h"

#include <algorithm>
#include <cmath>

#include "formats/fnu_file.h"

namespace vistaplot {

void AppendFnuDays(std::string& bytes,
                   const MarketCalendar& calendar,
                   int first_day,
                   std::span<const float> values) {
  int day = first_day;
  for (const float value : values) {
    AppendFnuValue(bytes, {.date = calendar.DateOf(day), .value = value});
    ++day;
  }
}

Status WriteFnuSeries(const std::string& path,
                      std::string_view symbol,
                      std::string_view title,
                      const MarketCalendar& calendar,
                      std::span<const float> values) {
  Result<OutputFile> file = OutputFile::Create(path);
  if (!file) return file.Error();
  if (!std::ranges::all_of(values, [](float value) { return std::isfinite(value); })) {
    return MakeError(kErrorOverflow, path);
  }
  AppendFnuTitle(file.Value().Bytes(), symbol, title);
  AppendFnuDays(file.Value().Bytes(), calendar, 1, values);
  return file.Value().Finish();
}

}  // namespace vistaplot
