#include "charts/builders/time_periods.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "charts/builders/graph_selection.h"
#include "support/weekday_calendar.h"

namespace vistaplot {
namespace {

int DayOf(const MarketCalendar& calendar, const CivilDate& date) {
  return MarketDayOf(calendar, SerialFromDate(date));
}

// A window that begins on the day of the right number of months before its end.
TEST(PriceWindow, BeginsOnOrBeforeTheDateOfThePeriod) {
  const MarketCalendar calendar = WeekdayCalendar(1500);
  struct Case {
    int period;
    CivilDate end, first;
  };
  const std::vector<Case> cases = {
      {0, {1990, 3, 15}, {1990, 2, 15}},
      {0, {1990, 3, 30}, {1990, 2, 28}},  // February has no 30th
      {0, {1990, 5, 14}, {1990, 4, 13}},  // 14 April was a Saturday
      {1, {1990, 5, 14}, {1990, 3, 14}},
      {2, {1990, 5, 14}, {1990, 2, 14}},
      {3, {1991, 5, 14}, {1990, 11, 14}},
      {4, {1991, 5, 14}, {1990, 8, 14}},
      {5, {1991, 5, 14}, {1990, 5, 14}},
      {6, {1992, 5, 14}, {1990, 5, 14}},
      {7, {1993, 5, 14}, {1990, 5, 14}},
      {8, {1995, 5, 15}, {1990, 5, 15}},
      {5, {1990, 12, 31}, {1990, 1, 2}},  // no further back than day 2
  };
  for (const Case& c : cases) {
    const int end = DayOf(calendar, c.end);
    ASSERT_GT(end, 0);
    const auto window = PriceWindow(c.period, end, kLeastLookbackDays, calendar);
    ASSERT_TRUE(window);
    EXPECT_EQ(DateText(calendar.DateOf(window->first_day), DatePattern::kIso),
              DateText(SerialFromDate(c.first), DatePattern::kIso));
    EXPECT_EQ(window->end_day, end);
  }
}

TEST(PriceWindow, ReachesBackAtLeastItsMarketDays) {
  MarketCalendar fridays = WeekdayCalendar(600);
  for (int day = 1; day <= 600; ++day) fridays.DayDates[static_cast<std::size_t>(day)] = day * 7;
  EXPECT_EQ(PriceWindow(0, 500, kLeastLookbackDays, fridays), (DayWindow{480, 500}));
  EXPECT_EQ(PriceWindow(2, 500, kLeastLookbackDays, fridays), (DayWindow{440, 500}));
}

TEST(PriceWindow, MovesAsAWholeBehindTheHistoryItNeeds) {
  const MarketCalendar calendar = WeekdayCalendar(300);
  EXPECT_EQ(PriceWindow(0, 30, 52, calendar), (DayWindow{52, 72}));
  EXPECT_EQ(PriceWindow(0, 1, 2, calendar), (DayWindow{2, 22}));
  EXPECT_EQ(PriceWindow(0, -5, 2, calendar), (DayWindow{2, 22}));
  EXPECT_EQ(PriceWindow(5, 200, 102, calendar), (DayWindow{102, 300}));
  EXPECT_EQ(PriceWindow(0, 299, 300, calendar), (DayWindow{300, 300}));
  EXPECT_EQ(PriceWindow(0, 299, 301, calendar), std::nullopt);
  EXPECT_EQ(PriceWindow(9, 120, 2, calendar), (DayWindow{2, 300}));
  EXPECT_EQ(PriceWindow(9, 120, 52, calendar), (DayWindow{52, 300}));
  EXPECT_EQ(PriceWindow(9, 1, 2, MarketCalendar{}), std::nullopt);
}

TEST(LookbackDays, IsTheLongestPeriodAndTwoDays) {
  const auto days = [](std::vector<double> periods) { return LookbackDaysFor(periods).Value(); };
  EXPECT_EQ(days({}), 2);
  EXPECT_EQ(days({-7.0}), 2);
  EXPECT_EQ(days({20.0, 50.0, 30.0}), 52);
  EXPECT_EQ(days({50.5}), 52);  // halves to even
  EXPECT_EQ(days({51.5}), 54);
  EXPECT_EQ(LookbackDaysFor(std::vector{20.0, 32766.0}).Error().number, kErrorOverflow);
}

constexpr const char* kSelectAFund = "Please select a fund on the Graph Data tab";
constexpr const char* kSelectTwo = "Two funds must be selected to graph correlation";

CellRange Columns(int first, int last) {
  return {.SelStartRow = 3, .SelStartCol = first, .SelEndRow = 3, .SelEndCol = last};
}

TEST(GraphSelection, ReadsTheColumnsOfEveryRange) {
  struct Case {
    std::vector<CellRange> ranges;
    SelectionUse use;
    std::vector<std::int16_t> columns;
    std::string message;
  };
  using enum SelectionUse;
  const std::vector<Case> cases = {
      {{Columns(1, 3)}, kFunds, {2, 3}, ""},  // the dates are no fund
      {{Columns(9, 20)}, kFunds, {9, 10}, ""},
      {{Columns(4, 5), Columns(2, 4)}, kFunds, {4, 5, 2, 3, 4}, ""},
      {{Columns(1, 1)}, kFunds, {}, kSelectAFund},
      {{Columns(11, 12)}, kFunds, {}, kSelectAFund},
      {{}, kCorrelation, {}, kSelectAFund},
      {{Columns(1, 4)}, kCorrelation, {2, 3}, ""},
      {{Columns(7, 7), Columns(3, 5)}, kCorrelation, {7, 3}, ""},
      {{Columns(5, 5)}, kCorrelation, {5}, kSelectTwo},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    SCOPED_TRACE(i);
    Sheet prices;
    prices.MaxCol = 10;
    prices.selection = cases[i].ranges;
    GraphSelection selection;
    selection.SelectedColumns = {8};
    selection.SelectedCount = 1;
    selection.CurrentFund = 6;
    EXPECT_EQ(ReadGraphSelection(prices, cases[i].use, selection), cases[i].message);
    EXPECT_EQ(selection.SelectedColumns, cases[i].columns);
    EXPECT_EQ(selection.SelectedCount, static_cast<int>(cases[i].columns.size()));
    EXPECT_EQ(selection.CurrentFund, cases[i].message.empty() ? 1 : 6);
  }
}

TEST(GraphSelection, IsReadAgainWhenAskedForOrMissing) {
  GraphSelection selection;
  EXPECT_TRUE(NeedsSelection(selection, false));
  selection.SelectedCount = 2;
  EXPECT_TRUE(NeedsSelection(selection, false));
  selection.CurrentFund = 1;
  EXPECT_FALSE(NeedsSelection(selection, false));
  EXPECT_TRUE(NeedsSelection(selection, true));
}

TEST(GraphSelection, StepsAroundTheEnds) {
  GraphSelection selection;
  selection.SelectedCount = 3;
  const std::vector<std::array<std::int16_t, 3>> steps = {
      {1, 1, 2}, {3, 1, 1}, {3, -1, 2}, {1, -1, 3}, {9, -1, 1}};
  for (const auto& [from, step, to] : steps) {
    selection.CurrentFund = from;
    EXPECT_EQ(SteppedFund(selection, step), to) << from << " " << step;
  }
}

}  // namespace
}  // namespace vistaplot
