#include "calc/fnu_series.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

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

namespace {

constexpr double kHadPriceAbove = -0.5;

}  // namespace

std::vector<float> ComputeBetaSeries(std::span<const double> prices,
                                     float beta,
                                     float start_value) {
  std::vector<float> series(prices.size(), start_value);
  for (std::size_t i = 1; i < prices.size(); ++i) {
    const double before = prices[i - 1];
    const double value = series[i - 1];
    const bool moves = before > kHadPriceAbove && before != 0.0;
    series[i] = moves ? static_cast<float>(value + static_cast<double>(beta) * value *
                                                       (prices[i] / before - 1.0))
                      : series[i - 1];
  }
  return series;
}

}  // namespace vistaplot
