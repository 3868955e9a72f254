#include "charts/kinds/read_out.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/text.h"
#include "charts/kinds/kind.h"

namespace vistaplot {
namespace {

constexpr const char* kMinus = "−";

std::string WithMinus(std::string text) {
  if (text.starts_with('-')) text.replace(0, 1, kMinus);
  return text;
}

std::string Joined(const ReadOut& read_out, const char* between) {
  std::string text = read_out.heading;
  for (const ReadOutEntry& entry : read_out.entries) {
    if (!text.empty()) text.append(between);
    text.append(entry.label).append(" ").append(entry.text);
  }
  return text;
}

double ChangeOf(ValueUnit unit, double value) {
  return unit == ValueUnit::kRatio ? value - 1.0 : value;
}

// A number that estimates something: so many digits as mean something.
std::string Rounded(double value, int decimals) {
  return WithMinus(FixedText(value, decimals));
}

std::string UnitText(ValueUnit unit, double value) {
  switch (unit) {
    case ValueUnit::kPower:
      return std::abs(value) < 1e5 && std::abs(value) >= 0.1 ? Rounded(value, 2)
                                                             : PlainValueText(value);
    case ValueUnit::kCoefficient:
      return Rounded(value, 3);
    default:
      return PlainValueText(value);
  }
}

}  // namespace

ReadOut ReadRow(const ChartView& view, int row, bool dark, int column) {
  if (row < 1 || row > view.rowcount()) return {};
  return KindOf(view).ReadAt(view, row, column, dark ? DarkTheme() : LightTheme());
}

std::string ReadOutName(const ChartView& view, const DrawnSeries& series) {
  const std::string& stated = view.facts.SeriesAt(series.number).name;
  if (!stated.empty()) return stated;
  return std::string(TrimBlanks(view.ColumnLabelAt(series.LabelColumn())));
}

std::optional<double> PriceOf(const ChartView& view, const DrawnSeries& series, double value) {
  const SeriesFacts& facts = view.facts.SeriesAt(series.number);
  if (!IsRebased(view.facts.unit) || facts.base <= 0.0) return std::nullopt;
  return facts.base * (1.0 + ChangeOf(view.facts.unit, value));
}

ReadOutValue ReadValue(const ChartView& view,
                       const DrawnSeries& series,
                       double value,
                       bool computed) {
  const ValueUnit unit = view.facts.unit;
  ReadOutValue read{ReadOutName(view, series), {}, value, {}};
  if (!IsRebased(unit)) {
    read.text = UnitText(unit, value);
    return read;
  }
  const double change = ChangeOf(unit, value);
  read.percent = change * 100.0;
  read.text = PercentText(change);
  if (const auto price = PriceOf(view, series, value)) {
    read.value = computed ? *price : SevenDigitValue(static_cast<float>(*price));
    read.text = PriceText(*price, computed) + " " + read.text;
  }
  return read;
}

std::string PriceText(double price, bool computed) {
  if (!computed || !(std::abs(price) > 1e-4 && std::abs(price) < 1e9)) {
    return WithMinus(NumberText(static_cast<float>(price)));
  }
  constexpr int kDigits = 5;
  const int before = static_cast<int>(std::floor(std::log10(std::abs(price)))) + 1;
  return Rounded(price, std::max(2, kDigits - before));
}

std::string PlainValueText(double value) {
  if (std::abs(value) >= 1e9) return ExactText(static_cast<float>(value));
  return WithMinus(NumberText(static_cast<float>(value)));
}

std::string PercentText(double change) {
  const std::string size = FixedText(std::abs(change) * 100.0, 2);
  if (size == "0.00") return "0.00%";
  return (change < 0.0 ? kMinus : "+") + size + "%";
}

std::string LineText(const ReadOut& read_out) {
  return Joined(read_out, ", ");
}

std::string ListText(const ReadOut& read_out) {
  return Joined(read_out, "\n");
}

std::optional<int> HistoriesEnd(const ChartView& view) {
  int end = 0;
  bool any = false;
  for (const DrawnSeries& series : KindOf(view).Series(view)) {
    const SeriesFacts& facts = view.facts.SeriesAt(series.number);
    if (facts.role != SeriesRole::kPlain) continue;
    if (!facts.last_price_row || *facts.last_price_row >= view.rowcount()) return std::nullopt;
    end = std::max(end, *facts.last_price_row);
    any = true;
  }
  if (!any) return std::nullopt;
  return end;
}

}  // namespace vistaplot
