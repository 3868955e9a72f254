#include "import/family_summary.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/load_world.h"

namespace vistaplot {
namespace {

const FamilyWindow kSixDays{1, 6, {"1", "2", "5", "6", "2.5", "abc"}};

/// Six market days; day 2 is 2 January 1990 and day 6 two years of 365 days later.
void SetSixDays(test::LoadWorld& world) {
  const DateSerial day2 = SerialFromDate({1990, 1, 2});
  world.api.dates = {day2 - 1, day2, day2 + 100, day2 + 365, day2 + 500, day2 + 730};
}

TEST(FamilySummary, FiguresOfEachKindOfHistory) {
  struct Case {
    const char* about;
    std::vector<float> prices;
    int start;
    const char* row;  // from "Ann %" on
  };
  const std::vector<Case> cases{
      // W = 2, 1, 1.5, 4: half lost on day 4; S = 50^2 + 25^2 over 5 days: UI 25; (100 - 5.4) / 25.
      // Gains on 15, 10, 10, day 0, day 3.5 taken as 4, 40 itself.
      {"rise, fall and rise",
       {10, 10, 20, 10, 15, 40},
       1,
       "100.00|50|01/02/1991|25.00|3.78|166.667|300.000|300.000|0|300.000|0.000"},
      // No draw-down: deepest on the first used day; UPI is what is above the rate.
      {"steady rise",
       {10, 10, 11, 12, 13, 14.4F},
       1,
       "20.00|0|04/12/1990|0.00|14.60|10.769|20.000|44.000|0|20.000|0.000"},
      // The loss of the first used day (day 3) is outside the draw-down: W = 0.5, 0.4, 0.4, 0.4 and
      // P = 0.5 give m = 0.8; S = 3 x 20^2 over 5 days; growth 0.4 in two years.
      {"loss on the first used day",
       {10, 10, 5, 4, 4, 4},
       1,
       "-36.75|20|01/02/1991|15.49|-2.72|0.000|0.000|-60.000|0|0.000|0.000"},
      // First used day 5, first = 4: W = 1.5 over 365 days.
      {"starts on day 4",
       {8, 10, 12},
       4,
       "50.00|0|05/17/1991|0.00|44.60|20.000|50.000|0|0|50.000|0.000"},
      {"stands still", {7, 7, 7, 7, 7, 7}, 1, "0.00|0||0.00|-5.40|0.000|0.000|0.000|0|0.000|0.000"},
      // Divisions by 0 after day 4: what is undefined shows 0.00, the draw-down was complete.
      {"falls to 0",
       {1, 1, 2, 0, 5, 5},
       1,
       "0.00|100|01/02/1991|0.00|0.00|0.000|0|400.000|0|0|0.000"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.about);
    test::LoadWorld world;
    SetSixDays(world);
    world.api.AddIssue("ABC", c.prices, c.start);
    const std::vector<std::string> symbols{"ABC"};
    ComputeFamilySummary(world.services, symbols, kSixDays, world.records, world.progress);
    const std::string name = PadRight("Name of ABC", 40);
    EXPECT_EQ(world.Row(2, 2), std::string("ABC|").append(name).append("|").append(c.row));
    EXPECT_TRUE(world.dialogs.messages.empty());
  }
}

TEST(FamilySummary, SheetHasHeadingsExtentAndTogglesAndKeepsTheOrder) {
  test::LoadWorld world;
  SetSixDays(world);
  world.api.AddIssue("B", {1, 1, 2, 3, 4, 5});
  world.api.AddIssue("A", {1, 1, 2, 3, 4, 5});
  const std::vector<std::string> symbols{"B", "NONE", "A"};
  ComputeFamilySummary(world.services, symbols, kSixDays, world.records, world.progress);
  EXPECT_EQ(world.Row(2, 1),
            "Symbol|Name|Ann %|MDD %|MDD Date|UI|UPI|1 day|2 day|5 day|6 day|2.5 day|abc day");
  const Sheet& sheet = world.table.SheetAt(2);
  EXPECT_EQ(sheet.SheetName, "Summary");
  EXPECT_EQ(sheet.MaxRow, 4);
  EXPECT_EQ(sheet.MaxCol, 13);
  EXPECT_EQ(sheet.FixedRows, 1);
  EXPECT_EQ(sheet.FixedCols, 1);
  EXPECT_GT(sheet.ColumnWidth(2), sheet.ColumnWidth(1));
  EXPECT_EQ(sheet.CellText(2, 1) + sheet.CellText(3, 1) + sheet.CellText(4, 1), "BNONEA");
  EXPECT_EQ(sheet.CellText(3, 2), std::string(40, ' '));
  for (int col = 1; col <= 14; ++col) {
    EXPECT_EQ(world.table.SortToggle[static_cast<std::size_t>(col)], 1) << col;
  }
  EXPECT_EQ(world.dialogs.Texts(),
            (std::vector<std::string>{"Unable to get prices for NONE\rno such issue\r(error -5)",
                                      "Unable to get start date for NONE\rusing 1"}));
  EXPECT_EQ(world.progress.actions, std::vector<std::string>{"Calculating Family Info..."});
  EXPECT_FALSE(world.progress.action_shown || world.progress.meter_shown);
}

// A breadth series: values of 0 and below. W = -1 after day 4: no root of it in two years, the
// others are defined. P = 2 on day 3, m = -1 / 2, S = 150^2 x 3 over 5 days.
TEST(FamilySummary, UndefinedFiguresShowZeroAndAreCounted) {
  test::LoadWorld world;
  SetSixDays(world);
  world.api.AddIssue("ADL", {1, 1, 2, -1, -1, -1});
  world.api.AddIssue("NIL", {1, 1, 0, 0, 4, 4});
  world.api.AddIssue("OK", {1, 1, 2, 2, 2, 2});
  const std::vector<std::string> symbols{"ADL", "NIL", "OK"};
  EXPECT_EQ(ComputeFamilySummary(world.services, symbols, kSixDays, world.records, world.progress),
            2);
  const auto figures = [&](int row) {
    std::vector<std::string> texts;
    for (int col = 3; col <= 7; ++col) texts.push_back(world.table.SheetAt(2).CellText(row, col));
    return texts;
  };
  EXPECT_EQ(figures(2), (std::vector<std::string>{"0.00", "150", "01/02/1991", "116.19", "0.00"}));
  // Down to 0 on the first used day: the peak is 0, nothing is defined.
  EXPECT_EQ(figures(3), (std::vector<std::string>{"0.00", "0", "", "0.00", "0.00"}));
  EXPECT_EQ(figures(4), (std::vector<std::string>{"41.42", "0", "04/12/1990", "0.00", "36.02"}));
}

TEST(FamilySummary, EachColumnHoldsItsOwnFigure) {
  test::LoadWorld world;
  SetSixDays(world);
  world.api.AddIssue("ABC", {10, 10, 20, 10, 15, 40});
  const std::vector<std::string> symbols{"ABC"};
  ComputeFamilySummary(world.services, symbols, kSixDays, world.records, world.progress);
  const std::vector<std::pair<std::string, std::string>> columns{
      {"Symbol", "ABC"},
      {"Name", PadRight("Name of ABC", 40)},
      {"Ann %", "100.00"},
      {"MDD %", "50"},
      {"MDD Date", "01/02/1991"},
      {"UI", "25.00"},
      {"UPI", "3.78"},
      {"1 day", "166.667"},
      {"2 day", "300.000"},
      {"5 day", "300.000"},
      {"6 day", "0"},
      {"2.5 day", "300.000"},
      {"abc day", "0.000"}};
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const int col = static_cast<int>(c) + 1;
    EXPECT_EQ(world.table.SheetAt(2).CellText(1, col), columns[c].first);
    EXPECT_EQ(world.table.SheetAt(2).CellText(2, col), columns[c].second) << columns[c].first;
  }
}

TEST(FamilySummary, WindowIsBroughtIntoTheCalendarAndOverflowShowsZero) {
  test::LoadWorld world;
  world.api.SetDays(33000, 6);
  world.api.AddIssue("ABC", {1, 1, 1, 1, 1, 1000});  // 1000^365 a year
  const std::vector<std::string> symbols{"ABC"};
  const FamilyWindow window{-3, 99, {"1", "-1", "1e9", "", "5", "0"}};
  ComputeFamilySummary(world.services, symbols, window, world.records, world.progress);
  EXPECT_EQ(world.table.SheetAt(2).CellText(2, 3), "0.00");
  EXPECT_TRUE(world.Row(2, 2).ends_with("|99900.000|0|0|0.000|99900.000|0.000"));
}

TEST(FamilySummary, TooLongACalendarIsReportedAndLeavesHeadingsAlone) {
  test::LoadWorld world;
  world.api.SetDays(1, 12001);
  world.api.AddIssue("ABC", std::vector<float>(12001, 2.0F));
  const std::vector<std::string> symbols{"ABC"};
  ComputeFamilySummary(world.services, symbols, kSixDays, world.records, world.progress);
  EXPECT_EQ(world.dialogs.Texts(),
            std::vector<std::string>{"The market-data service holds 12001 days; family "
                                     "calculations use at most 12000"});
  EXPECT_EQ(world.table.SheetAt(2).MaxRow, 1);
  EXPECT_TRUE(world.Row(2, 1).starts_with("Symbol|Name"));
}

}  // namespace
}  // namespace vistaplot
