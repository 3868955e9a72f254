#include <gtest/gtest.h>

#include "formats/detail_file.h"
#include "formats/kestrelix_file.h"
#include "formats/summary_file.h"
#include "formats/vornaxil_file.h"
#include "formats/zephyrine_file.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

TEST(SummaryFile, ARecordIsALineOfTenTabbedFields) {
  const SummaryRecord record{.case_number = 12,
                             .buy_signals = 3,
                             .sell_signals = 4,
                             .annual_percent = 12.5,
                             .switches_per_year = 2.25,
                             .draw_down_percent = 9.0004,
                             .draw_down_date = SerialFromDate({2002, 7, 23}),
                             .ulcer_index = 3.1415,
                             .ulcer_performance = -0.0004,
                             .winners_percent = 66.666};
  std::string bytes;
  AppendTextRecord(bytes, kSummaryForm, TextsOf(record));
  EXPECT_EQ(bytes,
            "12  \t3   \t4   \t12.500  \t2.3 \t9.000   \t07/23/02\t3.142   \t0.000   \t66.67   "
            "\r\n  ");
  EXPECT_EQ(bytes.size(), 77U);
  EXPECT_EQ(ReadTextRecord(bytes, kSummaryFields),
            (Texts{"12  ",
                   "3   ",
                   "4   ",
                   "12.500  ",
                   "2.3 ",
                   "9.000   ",
                   "07/23/02",
                   "3.142   ",
                   "0.000   ",
                   "66.67   "}));
}

TEST(SummaryFile, ALongTextKeepsItsFirstCharactersInTheRecordAlone) {
  const SummaryRecord record{.case_number = 12345, .switches_per_year = 104.25};
  const auto texts = TextsOf(record);
  EXPECT_EQ(texts[0], "12345");
  std::string bytes;
  AppendTextRecord(bytes, kSummaryForm, texts);
  EXPECT_EQ(bytes.substr(0, 5), "1234\t");
  EXPECT_EQ(bytes.substr(24, 5), "104.\t");
  EXPECT_EQ(bytes.substr(38, 9), "        \t") << "no draw-down, no date";
}

TEST(DetailFile, ARecordIsALineOfFiveTabbedFields) {
  const DetailRecord record{.buy_signals = 5,
                            .sell_signals = 3,
                            .buy_date = SerialFromDate({1999, 1, 4}),
                            .trade_date = SerialFromDate({2010, 12, 31}),
                            .gain_percent = -5.2};
  std::string bytes;
  AppendTextRecord(bytes, kDetailForm, TextsOf(record));
  EXPECT_EQ(bytes, "5   \t3   \t01/04/99\t12/31/10\t-5.200  \r\n  ");
  EXPECT_EQ(bytes.size(), 40U);
}

/// Each field is filled with a letter of its own, separators with a dot.
TEST(ZephyrineFile, EveryFieldStandsAtItsByte) {
  const std::string record =
      "aaaa.bbbb.cccc.dddd.eeeeeeee.ffffffff.gggggggg.hhhh.iiii.jjjjj.kkkkkkkk.llllllll.mmmmmmmm."
      "nnnn.oooooo.pppppp.qqqqqq....";
  ASSERT_EQ(record.size(), 119U);
  const Texts texts = ReadTextRecord(record, kZephyrineFields);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(texts[i], std::string(kZephyrineFields[i].width, static_cast<char>('a' + i)));
  }
  std::string written;
  AppendTextRecord(written, kZephyrineForm, texts);
  EXPECT_EQ(written.size(), 119U);
  EXPECT_EQ(ReadTextRecord(written, kZephyrineFields), texts);
}

TEST(ZephyrineFile, LengthTellsTheFormOfItsRecords) {
  EXPECT_EQ(ZephyrineRecordSize(0), 119U);
  EXPECT_EQ(ZephyrineRecordSize(238), 119U);
  EXPECT_EQ(ZephyrineRecordSize(196), 98U);
  EXPECT_EQ(ZephyrineRecordSize(1666), 119U) << "17 short ones are 14 long ones";
  EXPECT_EQ(ZephyrineRecordSize(1), 98U);
}

TEST(VornaxilFile, Line2TellsTheKind) {
  EXPECT_EQ(VornaxilKindOf("     MA crossover"), "SM ");
  EXPECT_EQ(VornaxilKindOf("12345Stochastic"), "SM ");
  EXPECT_EQ(VornaxilKindOf("    MA crossover"), "APM");
  EXPECT_EQ(VornaxilKindOf("     ma"), "APM");
  EXPECT_EQ(VornaxilKindOf("     M"), "APM");
  EXPECT_EQ(VornaxilKindOf(""), "APM");
}

TEST(VornaxilFile, EveryFieldStandsAtItsColumn) {
  //                        1         2         3         4         5         6         7
  //               123456789.123456789.123456789.123456789.123456789.123456789.123456789.1234
  const auto sm = "  aaaaaaaa bbbbbbbb cccccccc    dddddddd eeeeeeee ffffffff  gggggggHhhhhh";
  const auto apm = "  aaaaaaaa bbbbbbbb    cccccccc dddddddd eeeeeeee ffffffffgggggg";
  EXPECT_EQ(ReadTextRecord(sm, VornaxilFields("SM ")),
            (Texts{"aaaaaaaa",
                   "bbbbbbbb",
                   "cccccccc",
                   "dddddddd",
                   "eeeeeeee",
                   "ffffffff",
                   "gggggggH",
                   "Hhhhhh"}));
  EXPECT_EQ(
      ReadTextRecord("  aaaaaaaa bbbbbbbb    cccccccc dddddddd eeeeeeee ffffffffgggggg",
                     VornaxilFields("APM")),
      (Texts{"aaaaaaaa", "bbbbbbbb", "cccccccc", "dddddddd", "eeeeeeee", "ffffffff", "gggggg"}));
  std::string row;
  AppendVornaxilRow(row, kVornaxilApmFields, ReadTextRecord(apm, kVornaxilApmFields));
  EXPECT_EQ(row, std::string(apm) + "\r\n");
}

TEST(KestrelixFile, EveryFieldStandsAtItsColumn) {
  const std::string line =
      "aaabbbbbbbccccccccddddddddeeeeeeeeefffffffffggggggggghhhhhhhhhiiiiiiiii";
  const Texts texts = ReadTextRecord(line, kKestrelixFields);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(texts[i], std::string(kKestrelixFields[i].width, static_cast<char>('a' + i)));
  }
  std::string written;
  AppendKestrelixLine(written, Texts{"1", "2", "3", "4", "5", "6", "7", "8", "1234567890"});
  EXPECT_EQ(written, "  1      2       3       4        5        6        7        8123456789\r\n");
}

}  // namespace
}  // namespace vistaplot
