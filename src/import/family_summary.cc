#include "import/family_summary.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/date.h"
#include "base/number_text.h"
#include "base/text.h"
#include "marketdata/service.h"

namespace vistaplot {
namespace {

constexpr double kDaysPerYear = 365.0;

/// Headings of all columns of the summary.
std::vector<std::string> Headings(const FamilyWindow& window) {
  std::vector<std::string> headings(kSummaryHeadings.begin(), kSummaryHeadings.end());
  for (const std::string& period : window.gain_days) {
    headings.push_back(period + " day");
  }
  return headings;
}

bool IsUndefined(double value) {
  return !std::isfinite(static_cast<float>(value));
}

/// A figure that is not finite in single precision is undefined and shows "0.00".
std::string FigureText(double value) {
  return IsUndefined(value) ? "0.00" : FixedText(value, 2);
}

/// The texts of one issue's row, column by column.
std::vector<std::string> RowTexts(const FamilyRecords& records,
                                  int k,
                                  const FamilyFigures& figures,
                                  const MarketCalendar& calendar) {
  return {std::string(TrimBlanks(records.Symbol(k))),
          records.Name(k),
          FigureText(figures.annual_percent),
          std::isfinite(figures.draw_down_percent) ? NumberText(figures.draw_down_percent) : "0.00",
          figures.draw_down_day > 0
              ? DateText(calendar.DateOf(figures.draw_down_day), DatePattern::kMonthDayLongYear)
              : std::string(),
          FigureText(figures.ulcer_index),
          FigureText(figures.ulcer_performance)};
}

/// True for a figure that is undefined because of a price of 0 or below on a day of the walk; a
/// figure can also be too large, after a gain of one day that is counted as a year's.
bool PricesMadeUndefined(const FamilyFigures& figures,
                         const GrowthWalk& walk,
                         std::span<const float> prices,
                         int end_day) {
  if (!IsUndefined(figures.annual_percent) && !IsUndefined(figures.draw_down_percent) &&
      !IsUndefined(figures.ulcer_index) && !IsUndefined(figures.ulcer_performance)) {
    return false;
  }
  const auto days = prices.subspan(static_cast<std::size_t>(walk.first),
                                   static_cast<std::size_t>(end_day - walk.first + 1));
  return std::any_of(days.begin(), days.end(), [](float price) { return price <= 0.0F; });
}

std::string GainText(std::span<const float> prices, int end_day, const std::string& period) {
  const std::optional<float> gain = TrailingGain(prices, end_day, LeadingNumber(period));
  return gain && std::isfinite(*gain) ? FixedText(*gain, 3) : "0";
}

/// Sheet 2, empty and named, with extents for `rows` issues.
Sheet& PrepareSheet(DataTable& table, int rows) {
  if (table.SheetCount() < kSummarySheet) {
    table.SetSheetCount(kSummarySheet);
  }
  table.SetActiveSheet(kSummarySheet);
  Sheet& sheet = table.Active();
  sheet.SheetName = "Summary";
  sheet.ClearAll();
  sheet.MaxRow = rows + 1;
  sheet.MaxCol = kSummaryColumns;
  sheet.FixedRows = 1;
  sheet.FixedCols = 1;
  return sheet;
}

void FinishSheet(DataTable& table, Sheet& sheet) {
  sheet.heading_tips.assign(kSummaryHeadingTips.begin(), kSummaryHeadingTips.end());
  for (int gain = 1; gain <= kGainPeriods; ++gain) {
    const int col = static_cast<int>(kSummaryHeadings.size()) + gain;
    sheet.heading_tips.push_back("Gain in percent over the " + sheet.CellText(1, col) +
                                 "s before the end of the analysis");
  }
  sheet.FitColumnWidths();
  std::fill(table.SortToggle.begin() + 1, table.SortToggle.end(), 1);
  table.NotifySheets();
  table.NotifyContent(kSummarySheet);
}

}  // namespace

FamilyFigures FiguresOfWalk(const GrowthWalk& walk, const MarketCalendar& calendar, int end_day) {
  FamilyFigures figures;
  const int calendar_days = calendar.DateOf(end_day) - calendar.DateOf(walk.first);
  const double years = calendar_days / kDaysPerYear;
  figures.annual_percent = (std::pow(static_cast<double>(walk.growth), 1.0 / years) - 1.0) * 100.0;
  if (walk.lowest_day > 0) {
    figures.draw_down_percent = (1.0F - walk.lowest_ratio) * 100.0F;
    figures.draw_down_day = walk.lowest_day;
  }
  figures.ulcer_index = std::sqrt(walk.square_sum / static_cast<float>(end_day - walk.first + 1));
  const float above_rate = static_cast<float>(figures.annual_percent) - kYearlyRate;
  figures.ulcer_performance =
      figures.ulcer_index == 0.0F ? above_rate : above_rate / figures.ulcer_index;
  return figures;
}

std::optional<float> TrailingGain(std::span<const float> prices, int end_day, double period) {
  const double base = end_day - period;
  const auto days = static_cast<double>(prices.size()) - 1.0;
  if (!(base >= 0.0 && base <= days + 1.0)) {
    return std::nullopt;
  }
  const int base_day = RoundHalfEven(base);
  if (base_day < 1 || base_day > static_cast<int>(days)) {
    return std::nullopt;
  }
  const float base_price = prices[static_cast<std::size_t>(base_day)];
  if (!(base_price > -0.5F) || base_price == 0.0F) {
    return std::nullopt;
  }
  return (prices[static_cast<std::size_t>(end_day)] / base_price - 1.0F) * 100.0F;
}

int WriteFamilySummary(const FamilyRecords& records,
                       const MarketCalendar& calendar,
                       const FamilyWindow& window,
                       DataTable& table) {
  const int count = records.Count();
  Sheet& sheet = PrepareSheet(table, count);
  std::vector<std::vector<std::string>> columns;
  for (std::string& heading : Headings(window)) {
    columns.push_back({std::move(heading)});
  }
  const int last_day = std::max(records.Days(), 1);
  const int begin_day = std::clamp(window.begin_day, 1, last_day);
  const int end_day = std::clamp(window.end_day, 1, last_day);
  const std::vector<GrowthWalk> walks = WalkGrowth(records, begin_day, end_day);
  int undefined = 0;
  for (int k = 1; k <= count; ++k) {
    const GrowthWalk& walk = walks[static_cast<std::size_t>(k - 1)];
    const FamilyFigures figures = FiguresOfWalk(walk, calendar, end_day);
    if (PricesMadeUndefined(figures, walk, records.Prices(k), end_day)) ++undefined;
    std::vector<std::string> row = RowTexts(records, k, figures, calendar);
    for (const std::string& period : window.gain_days) {
      row.push_back(GainText(records.Prices(k), end_day, period));
    }
    for (std::size_t c = 0; c < columns.size(); ++c) {
      columns[c].push_back(std::move(row[c]));
    }
  }
  for (std::size_t c = 0; c < columns.size(); ++c) {
    sheet.SetTextColumn(static_cast<int>(c) + 1, std::move(columns[c]));
  }
  FinishSheet(table, sheet);
  return undefined;
}

int ComputeFamilySummary(const LoadServices& services,
                         std::span<const std::string> symbols,
                         const FamilyWindow& window,
                         FamilyRecords& records,
                         Progress& progress) {
  const ProgressScope scope(progress, "Calculating Family Info...");
  PrepareHistories(services.api, services.market, services.dialogs);
  const MarketCalendar& calendar = services.market.calendar;
  if (FitsFamilyRecords(calendar, services.dialogs)) {
    FillFamilyRecords(services.api, services.market, symbols, records, services.dialogs, progress);
  } else {
    records.Resize(0, 0);
  }
  return WriteFamilySummary(records, calendar, window, services.table);
}

}  // namespace vistaplot
