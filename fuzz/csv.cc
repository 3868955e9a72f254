// Price files of all three forms. The first byte holds the options, one a bit.
#include <algorithm>
#include <cmath>

#include "harness.h"
#include "quoteline/csv_prices.h"
#include "quoteline/symbol_index.h"

namespace {

using namespace vistaplot;

PriceFileOptions OptionsOf(unsigned bits) {
  PriceFileOptions options;
  options.adjusted = (bits & 1U) != 0;
  options.wide = (bits & 2U) != 0;
  if ((bits & 4U) != 0) options.symbol = "SYM";
  if ((bits & 8U) != 0) options.name = "A name";
  return options;
}

void CheckSeries(const PriceFile& file, const PriceSeries& series) {
  fuzz::Require(SymbolFromText(series.symbol) == series.symbol, "symbols are symbols");
  fuzz::Require(series.dates < file.date_lists.size(), "a series has dates");
  const auto& dates = file.date_lists[series.dates];
  fuzz::Require(dates.size() == series.prices.size(), "a price a date");
  const auto not_before = [](const DateLine& a, const DateLine& b) { return a.date >= b.date; };
  fuzz::Require(std::adjacent_find(dates.begin(), dates.end(), not_before) == dates.end(),
                "dates ascend");
  for (const float price : series.prices) {
    fuzz::Require(std::isfinite(price) && price >= 0.0F, "prices are above 0, or absent");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const PriceFile file =
      ParsePriceFile("F.csv", fuzz::TextOf(data + 1, size - 1), OptionsOf(data[0]));
  fuzz::RequireMessage(file.refusal);
  for (const BadLine& bad : file.bad_lines.Kept()) fuzz::RequireMessage(bad.text);
  if (!file.refusal.empty() || file.bad_lines.Count() > 0) return 0;
  fuzz::Require(!file.series.empty(), "a file that is not refused holds an issue");
  for (const PriceSeries& series : file.series) CheckSeries(file, series);
  return 0;
}
