#include <gtest/gtest.h>

#include "formats/fnu_file.h"
#include "formats/signal_file.h"

namespace vistaplot {
namespace {

TEST(FnuFile, WrittenLinesAreTheFormat) {
  std::string bytes;
  AppendFnuTitle(bytes, "NYADL", "Fl\xC3\xBChe");
  AppendFnuValue(bytes, {.date = SerialFromDate({1990, 1, 5}), .value = 1234.0F});
  AppendFnuValue(bytes, {.date = SerialFromDate({2001, 11, 30}), .value = -0.1F});
  EXPECT_EQ(bytes, "NYADL\r\nFl\xFChe\r\n\"01/05/1990\",1234,0\r\n\"11/30/2001\",-0.1,0\r\n");
  const auto read = ParseFnuFile("A.FNU", bytes);
  ASSERT_TRUE(read);
  EXPECT_EQ(read.Value().title, "Fl\xC3\xBChe");
  ASSERT_EQ(read.Value().values.size(), 2U);
  EXPECT_EQ(read.Value().values[1].date, SerialFromDate({2001, 11, 30}));
  EXPECT_EQ(read.Value().values[1].value, -0.1F);
}

TEST(FnuFile, TitlesAreProposedWhateverFollows) {
  struct Case {
    const char* bytes;
    const char* symbol;
    const char* title;
  };
  const Case cases[] = {{"", "", ""},
                        {"nyadl", "NYADL", ""},
                        {"toolong x\r\nA, B\r\nrubbish", "TOOLONG X", "A"},
                        {"\"a,b\",1\n\"Ti,tle\"\n", "A,B", "Ti,tle"}};
  for (const Case& c : cases) {
    const FnuTitle read = ReadFnuTitle(c.bytes);
    EXPECT_EQ(read.symbol, c.symbol) << c.bytes;
    EXPECT_EQ(read.title, c.title) << c.bytes;
  }
}

TEST(SignalFile, OnlyACapitalBIsInAndLinesWithoutADateArePassedOver) {
  const SignalFile file = ParseSignalFile(
      "\"Title, with comma\"\r\nB,01/05/1990\r\n\"S\",\"1/8/90\"\nb,01/09/1990\rx\r\n\r\nB,\r\n"
      "B,02/30/1990\r\n B , 01/10/29 \r\nBUY,01/11/1999");
  EXPECT_EQ(file.title, "Title, with comma");
  const std::vector<Signal> expected = {{true, SerialFromDate({1990, 1, 5})},
                                        {false, SerialFromDate({1990, 1, 8})},
                                        {false, SerialFromDate({1990, 1, 9})},
                                        {true, SerialFromDate({2029, 1, 10})},
                                        {false, SerialFromDate({1999, 1, 11})}};
  ASSERT_EQ(file.signals.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(file.signals[i].is_in, expected[i].is_in) << i;
    EXPECT_EQ(file.signals[i].date, expected[i].date) << i;
  }
  EXPECT_TRUE(ParseSignalFile("").signals.empty());
  EXPECT_TRUE(ParseSignalFile("title").signals.empty());
}

TEST(SignalFile, WrittenLinesAreTheFormat) {
  std::string bytes;
  AppendSignalTitle(bytes, kCompositeTitle);
  AppendSignal(bytes, {.is_in = true, .date = SerialFromDate({1990, 1, 5})});
  AppendSignal(bytes, {.is_in = false, .date = SerialFromDate({2000, 12, 29})});
  EXPECT_EQ(bytes, "\"314Vistaplot Composite Signal\"\r\nB,01/05/1990\r\nS,12/29/2000\r\n");
}

TEST(SignalFamilyFile, EntriesStandInQuotesOneALine) {
  const std::vector<std::string> entries = {"DJ1050  ", "\xC3\x84RGER   "};
  const std::string bytes = "\"DJ1050  \"\r\n\"\xC4RGER   \"\r\n";
  EXPECT_EQ(SignalFamilyBytes(entries), bytes);
  EXPECT_EQ(ParseSignalFamily(bytes), entries);
  EXPECT_EQ(ParseSignalFamily("plain,2\n\n\"A,B\"\n\"  \"\nlast"),
            (std::vector<std::string>{"plain", "A,B", "last"}));
}

}  // namespace
}  // namespace vistaplot
