#include <gtest/gtest.h>

#include "formats/detail_file.h"
#include "formats/kestrelix_file.h"
#include "formats/summary_file.h"
#include "formats/vornaxil_file.h"
#include "formats/zephyrine_file.h"

namespace vistaplot {
namespace {

using Texts = std::vector<std::string>;

/// The texts with "|" between them.
std::string Joined(const Texts& texts) {
  std::string joined = texts.front();
  for (std::size_t i = 1; i < texts.size(); ++i) joined.append("|").append(texts[i]);
  return joined;
}

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
  EXPECT_EQ(Joined(ReadTextRecord(bytes, kSummaryFields)),
            "12  |3   |4   |12.500  |2.3 |9.000   |07/23/02|3.142   |0.000   |66.67   ");
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

TEST(ZephyrineFile, AWrittenRecordReadsBack) {
  const std::string record =
      "aaaa.bbbb.cccc.dddd.eeeeeeee.ffffffff.gggggggg.hhhh.iiii.jjjjj.kkkkkkkk.llllllll.mmmmmmmm."
      "nnnn.oooooo.pppppp.qqqqqq....";
  const Texts texts = ReadTextRecord(record, kZephyrineFields);
  EXPECT_EQ(Joined(texts),
            "aaaa|bbbb|cccc|dddd|eeeeeeee|ffffffff|gggggggg|hhhh|iiii|jjjjj|kkkkkkkk|llllllll|"
            "mmmmmmmm|nnnn|oooooo|pppppp|qqqqqq");
  std::string written;
  AppendTextRecord(written, kZephyrineForm, texts);
  EXPECT_EQ(written.size(), 119U);
  EXPECT_EQ(ReadTextRecord(written, kZephyrineFields), texts);
  const auto apm = "  aaaaaaaa bbbbbbbb    cccccccc dddddddd eeeeeeee ffffffffgggggg";
  std::string row;
  AppendVornaxilRow(row, kVornaxilApmFields, ReadTextRecord(apm, kVornaxilApmFields));
  EXPECT_EQ(row, std::string(apm) + "\r\n");
  std::string line;
  AppendKestrelixLine(line, Texts{"1", "2", "3", "4", "5", "6", "7", "8", "1234567890"});
  EXPECT_EQ(line, "  1      2       3       4        5        6        7        8123456789\r\n");
}

TEST(ZephyrineFile, LengthTellsTheFormOfItsRecords) {
  struct Case {
    std::size_t bytes, records;
    const char* beta;  ///< of the first record
  };
  const Case cases[] = {{0, 0, ""},
                        {1, 0, ""},
                        {97, 0, ""},
                        {98, 1, "  0.00"},
                        {119, 1, "xxxxxx"},
                        {196, 2, "  0.00"},
                        {237, 2, "  0.00"},
                        {238, 2, "xxxxxx"},
                        {1666, 14, "xxxxxx"}};
  for (const Case& c : cases) {
    const Records records = ReadZephyrineRecords(std::string(c.bytes, 'x'));
    EXPECT_EQ(records.starts.size(), c.records) << c.bytes;
    if (c.records == 0) continue;
    EXPECT_EQ(RecordField(records, records.starts[0], kZephyrineFields[14]), c.beta) << c.bytes;
    EXPECT_EQ(RecordField(records, records.starts.back(), kZephyrineFields[13]), "xxxx");
  }
}

TEST(VornaxilFile, Line2TellsTheKind) {
  EXPECT_EQ(VornaxilKindOf("     MA crossover"), "SM ");
  EXPECT_EQ(VornaxilKindOf("12345Stochastic"), "SM ");
  EXPECT_EQ(VornaxilKindOf("    MA crossover"), "APM");
  EXPECT_EQ(VornaxilKindOf("     ma"), "APM");
  EXPECT_EQ(VornaxilKindOf("     M"), "APM");
  EXPECT_EQ(VornaxilKindOf(""), "APM");
}

TEST(VornaxilFile, RowsBeginInLine8AndTheLastLineIsNone) {
  const std::string head = "one\r\n     MA\n3\r4\r\n5\r\n6\r\n7\r\n";
  struct Case {
    std::string bytes;
    const char* kind;                ///< null: none is told
    std::vector<std::string> first;  ///< first fields of the rows
  };
  const Case cases[] = {{"", nullptr, {}},
                        {"one\r\n     MA", nullptr, {}},
                        {"one\r\n     MA\r\n", nullptr, {}},
                        {"one\r\n     MA\r\n3", "SM ", {}},
                        {"one\r\n     XX\r\n3", "APM", {}},
                        {head, "SM ", {}},
                        {head + "  r8", "SM ", {}},
                        {head + "  r8\r\n", "SM ", {}},
                        {head + "  r8\r\n  r9", "SM ", {"r8"}},
                        {head + "  r8\r\n  r9\r\n", "SM ", {"r8"}},
                        {head + "  r8\r\n\r\n", "SM ", {"r8"}},
                        {head + "  r8\r\n\n  r10\r\n\r\n", "SM ", {"r8", "", "r10"}}};
  for (const Case& c : cases) {
    const VornaxilFile file = ReadVornaxilFile(c.bytes);
    EXPECT_EQ(file.kind.value_or("none"), c.kind == nullptr ? "none" : c.kind) << c.bytes;
    Texts first;
    for (const std::uint32_t start : file.records.starts) {
      first.emplace_back(RecordField(file.records, start, kVornaxilSmFields[0]));
    }
    EXPECT_EQ(first, c.first) << c.bytes;
  }
}

TEST(KestrelixFile, TitleNamesAndRowsWithoutTheLastLine) {
  struct Case {
    const char *bytes, *title;
    std::vector<std::string> second;  ///< second fields of names and rows
  };
  const Case cases[] = {{"", "", {}},
                        {" T\xFC ", " T\xC3\xBC ", {}},
                        {"T\r\n", "T", {}},
                        {"T\r\nskipped\r\n", "T", {}},
                        {"T\nskipped\nabcnames", "T", {}},
                        {"T\nskipped\nabc names \nlast", "T", {"names"}},
                        {"T\r\r01  names\r012  1.50  3\rabc\r", "T", {"names", "1.50"}}};
  for (const Case& c : cases) {
    const KestrelixFile file = ReadKestrelixFile(c.bytes);
    EXPECT_EQ(file.title, c.title) << c.bytes;
    Texts second;
    for (const std::uint32_t start : file.records.starts) {
      second.emplace_back(RecordField(file.records, start, kKestrelixFields[1]));
      EXPECT_EQ(RecordField(file.records, start, kKestrelixFields[8]), "") << "behind the line";
    }
    EXPECT_EQ(second, c.second) << c.bytes;
  }
}

}  // namespace
}  // namespace vistaplot
