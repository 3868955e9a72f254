#include "import/family_summary.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>

#include "base/text.h"
#include "import/family_records.h"
#include "support/load_world.h"

namespace vistaplot {
namespace {

const FamilyWindow kSixDays{1, 6, {"1", "2", "5", "6", "2.5", "abc"}};

/// Six market days; day 2 is 2 January 1990 and day 6 two years of 365 days later.
void SetSixDays(test::LoadWorld& world) {
  const DateSerial day2 = SerialFromDate({1990, 1, 2});
  world.api.dates = {day2 - 1, day2, day2 + 100, day2 + 365, day2 + 500, day2 + 730};
}

int Compute(test::LoadWorld& world,
            const std::vector<std::string>& symbols,
            const FamilyWindow& window = kSixDays) {
  return ComputeFamilySummary(world.services, symbols, window, world.records, world.progress);
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
    Compute(world, {"ABC"});
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
  EXPECT_EQ(Compute(world, {"B", "NONE", "A"}), 0);
  EXPECT_EQ(world.Row(2, 1),
            "Symbol|Name|Ann %|MDD %|MDD Date|UI|UPI|1 day|2 day|5 day|6 day|2.5 day|abc day");
  const Sheet& sheet = world.table.SheetAt(2);
  EXPECT_EQ(sheet.SheetName, "Summary");
  EXPECT_EQ(sheet.MaxRow, 4);
  EXPECT_EQ(sheet.MaxCol, 13);
  EXPECT_TRUE(sheet.FixedRows == 1 && sheet.FixedCols == 1);
  EXPECT_GT(sheet.ColumnWidth(2), sheet.ColumnWidth(1));
  EXPECT_EQ(sheet.CellText(2, 1) + sheet.CellText(3, 1) + sheet.CellText(4, 1), "BNONEA");
  EXPECT_EQ(sheet.CellText(3, 2), std::string(40, ' '));
  for (std::size_t col = 1; col <= 14; ++col) EXPECT_EQ(world.table.SortToggle[col], 1) << col;
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
  EXPECT_EQ(Compute(world, {"ADL", "NIL", "OK"}), 2);
  const auto figures = [&world](int row) { return world.Row(2, row).substr(3 + 1 + 40); };
  EXPECT_TRUE(figures(2).starts_with("|0.00|150|01/02/1991|116.19|0.00|")) << figures(2);
  // Down to 0 on the first used day: the peak is 0, nothing is defined.
  EXPECT_TRUE(figures(3).starts_with("|0.00|0||0.00|0.00|")) << figures(3);
  EXPECT_NE(figures(4).find("41.42|0|04/12/1990|0.00|36.02|"), std::string::npos) << figures(4);
}

TEST(FamilySummary, WindowIsBroughtIntoTheCalendarAndOverflowShowsZero) {
  test::LoadWorld world;
  world.api.SetDays(33000, 6);
  world.api.AddIssue("ABC", {1, 1, 1, 1, 1, 1000});  // 1000^365 a year
  Compute(world, {"ABC"}, {-3, 99, {"1", "-1", "1e9", "", "5", "0"}});
  EXPECT_EQ(world.table.SheetAt(2).CellText(2, 3), "0.00");
  EXPECT_TRUE(world.Row(2, 2).ends_with("|99900.000|0|0|0.000|99900.000|0.000"));
}

TEST(FamilySummary, TooLongACalendarIsReportedAndLeavesHeadingsAlone) {
  test::LoadWorld world;
  world.api.SetDays(1, 12001);
  world.api.AddIssue("ABC", std::vector<float>(12001, 2.0F));
  Compute(world, {"ABC"});
  EXPECT_EQ(world.dialogs.Texts(),
            std::vector<std::string>{"The market-data service holds 12001 days; family "
                                     "calculations use at most 12000"});
  EXPECT_EQ(world.table.SheetAt(2).MaxRow, 1);
  EXPECT_TRUE(world.Row(2, 1).starts_with("Symbol|Name"));
}

/// The rule for one issue, written down as it is stated.
GrowthWalk PlainWalk(std::span<const float> p, int begin_day, int end_day) {
  GrowthWalk w;
  bool started = false;
  for (int day = begin_day + 2; day <= end_day; ++day) {
    const float today = p[static_cast<std::size_t>(day)];
    const float before = p[static_cast<std::size_t>(day - 1)];
    if (!started && !(today != before && before > 0.0F)) continue;
    if (!started) {
      started = true;
      w.first = day - 1;
    }
    const float ratio = today / before;
    w.growth = w.growth * ratio;
    w.peak = std::max(w.peak, w.growth);
    const float of_peak = w.growth / w.peak;
    if (of_peak < w.lowest_ratio) {
      w.lowest_ratio = of_peak;
      w.lowest_day = day;
    }
    const float below = (w.growth - w.peak) * 100.0F / w.peak;
    w.square_sum = w.square_sum + below * below;
  }
  return w;
}

void ExpectSameBits(const GrowthWalk& a, const GrowthWalk& b) {
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  EXPECT_EQ(bits(a.growth), bits(b.growth));
  EXPECT_EQ(bits(a.peak), bits(b.peak));
  EXPECT_EQ(bits(a.lowest_ratio), bits(b.lowest_ratio));
  EXPECT_EQ(bits(a.square_sum), bits(b.square_sum));
  EXPECT_EQ(a.first, b.first);
  EXPECT_EQ(a.lowest_day, b.lowest_day);
}

/// Histories that start on any day or never, stand still for stretches, and turn negative once.
FamilyRecords RandomFamily(int count, int days, std::mt19937& random) {
  FamilyRecords records;
  records.Resize(count, days);
  std::uniform_int_distribution<int> any_day(1, days + 20);
  std::uniform_real_distribution<float> move(0.93F, 1.08F);
  for (int k = 1; k <= count; ++k) {
    const std::span<float> prices = records.Prices(k);
    const int start = k % 3 == 0 ? 1 : any_day(random);
    float price = 20.0F;
    for (int day = 0; day <= days; ++day) {
      price = random() % 4 == 0 ? price : price * move(random);
      prices[static_cast<std::size_t>(day)] = day < start ? -1.0F : price;
    }
    if (k == 5) prices.back() = -3.5F;
  }
  return records;
}

TEST(FamilyWalk, IssuesSideBySideHaveTheBitsOfThePlainLoop) {
  std::mt19937 random(20240607);
  for (const int count : {1, 4, 7, 8, 9, 30}) {
    for (const int days : {1, 2, 3, 9, 10, 11, 18, 400}) {
      const FamilyRecords records = RandomFamily(count, days, random);
      for (const int begin_day : {1, 2, days / 2 + 1}) {
        for (const int end_day : {days, days - days / 5}) {
          SCOPED_TRACE(testing::Message() << count << " issues, " << days << " days, " << begin_day
                                          << " to " << end_day);
          const auto walks = WalkGrowth(records, begin_day, end_day);
          ASSERT_EQ(walks.size(), static_cast<std::size_t>(count));
          for (int k = 1; k <= count; ++k) {
            const auto i = static_cast<std::size_t>(k - 1);
            const GrowthWalk expected = PlainWalk(records.Prices(k), begin_day, end_day);
            ExpectSameBits(walks[i], expected);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace vistaplot
