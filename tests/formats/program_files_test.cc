// The program's own files: families, parameters, series and signals.
#include <gtest/gtest.h>

#include <algorithm>

#include "formats/family_file.h"
#include "formats/fnu_file.h"
#include "formats/parameter_file.h"
#include "formats/signal_file.h"

namespace vistaplot {
namespace {

/// A family of two issues, byte by byte as the format has it.
std::string TwoIssues() {
  std::string bytes = "DOW15   Stocks of the Dow";
  bytes.resize(80, ' ');
  bytes += std::string("\x02\x00", 2) + std::string(34, '?');
  bytes += "IP   " + std::string(14, '\x07') + "GM   " + std::string(14, '\x07');
  return bytes;
}

TEST(FamilyFile, EveryFieldStandsAtItsByte) {
  const FamilyHeader header = ReadFamilyHeader(TwoIssues());
  EXPECT_EQ(header.name, "DOW15   ");
  EXPECT_EQ(header.title, "Stocks of the Dow" + std::string(55, ' '));
  EXPECT_EQ(header.count, 2);
  EXPECT_EQ(header.rest, std::string(34, '?'));
  EXPECT_EQ(ReadFamilyEntry(TwoIssues(), 1).Value().symbol, "GM   ");
}

TEST(FamilyFile, WrittenFileIsTheFormat) {
  const std::vector<std::string> symbols{"IP", "GM"};
  std::string expected = TwoIssues();
  std::replace(expected.begin(), expected.end(), '\x07', ' ');
  EXPECT_EQ(
      FamilyFileBytes({"DOW15", "Stocks of the Dow", 0, std::string(34, '?')}, symbols).Value(),
      expected);
  EXPECT_EQ(FamilyFileBytes({}, std::vector<std::string>(32768, "A")).Error().number, 6);
}

TEST(FamilyFile, FileCutAnywhereGivesItsWholeEntriesOrAnError) {
  const std::string whole = TwoIssues();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const auto family = ParseFamilyFile(whole.substr(0, length));
    if (length < 116) {
      ASSERT_FALSE(family) << length;
      EXPECT_EQ(family.Error().number, 62);
      continue;
    }
    const std::size_t entries = (length >= 121 ? 1U : 0U) + (length >= 140 ? 1U : 0U);
    EXPECT_EQ(family.Value().symbols.size(), entries) << length;
    EXPECT_EQ(family.Value().cut_off, entries < 2) << length;
  }
}

TEST(FamilyFile, NegativeCountHasNoEntries) {
  std::string bytes = TwoIssues();
  bytes[81] = '\xFF';
  EXPECT_TRUE(ParseFamilyFile(bytes).Value().symbols.empty());
}

/// A text padded with blanks to its field.
std::string Field(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string Number(int value) {
  const auto bits = static_cast<unsigned>(value) & 0xFFFFU;
  return {static_cast<char>(bits & 0xFFU), static_cast<char>(bits >> 8U)};
}

/// A whole record, byte by byte as the format has it.
std::string Record() {
  return Number(1) + Number(0) + Number(-1) + Number(0) + Number(1) +       // check boxes
         Field("C:\\QL\\SIG\\COMP.SIG", 50) + Field("C:\\QL\\E.FNU", 50) +  //
         Field("EQUI", 5) + Field("Signal \xE9quity", 40) +                 //
         Field("D.SDT", 50) + Field("F.SFM", 50) +                          //
         Field("FNDIN", 5) + Field("CASH", 5) +                             //
         Number(1) + Number(300) + Number(-2) + Number(12) +                // thresholds
         Field("S.SSM", 50) + Number(6000) + Number(1);
}

TEST(ParameterFile, EveryFieldStandsAtItsByte) {
  ASSERT_EQ(Record().size(), 327U);
  const SignalParameters read = ReadParameters(Record(), {});
  EXPECT_TRUE(read.makes_signal_fnu && read.makes_detail && read.makes_summary);
  EXPECT_FALSE(read.makes_composite || read.is_two_dimensional);
  std::string texts = Record().substr(10, 255);
  texts.replace(texts.find('\xE9'), 1, "\xC3\xA9");
  EXPECT_EQ(read.composite_path + read.fnu_path + read.fnu_symbol + read.fnu_title +
                read.detail_path + read.family_path + read.in_fund + read.out_fund,
            texts);
  EXPECT_EQ(read.summary_path, Field("S.SSM", 50));
  EXPECT_EQ(
      (std::vector<int>{
          read.buy_from, read.buy_to, read.sell_from, read.sell_to, read.start_day, read.delay}),
      (std::vector<int>{1, 300, -2, 12, 6000, 1}));
}

TEST(ParameterFile, WrittenRecordIsTheFormat) {
  std::vector<std::string_view> too_long;
  std::string expected = Record();
  expected.replace(4, 2, Number(1));
  EXPECT_EQ(ParameterBytes(ReadParameters(Record(), {}), too_long), expected);
  EXPECT_TRUE(too_long.empty());
}

TEST(ParameterFile, ATextThatIsTooLongIsCutAndNamed) {
  SignalParameters parameters;
  parameters.detail_path = std::string(51, 'd');
  parameters.in_fund = "FUND  ";  // blanks at the end need no room
  parameters.out_fund = "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";
  std::vector<std::string_view> too_long;
  const std::string record = ParameterBytes(parameters, too_long);
  EXPECT_EQ(too_long, std::vector<std::string_view>{"path of the detail file"});
  EXPECT_EQ(record.substr(155, 55), std::string(50, 'd') + "     ");
  EXPECT_EQ(record.substr(255, 10), "FUND \xE9\xE9\xE9\xE9\xE9");
}

TEST(ParameterFile, AFileCutAnywhereLeavesWhatItLacks) {
  SignalParameters current;
  current.in_fund = "KEPT";
  current.sell_to = 9;
  current.start_day = 77;
  current.delay = 0;
  const auto read = [&](std::size_t length) {
    return ReadParameters(Record().substr(0, length), current);
  };
  EXPECT_EQ(read(0).in_fund, "KEPT");
  EXPECT_EQ(read(257).in_fund, "FN");
  EXPECT_EQ(ReadParameters(std::string(260, '\0'), current).in_fund, "     ");
  EXPECT_EQ(read(272).sell_to, 9);
  EXPECT_EQ(read(273).sell_to, 12);
  for (const std::size_t length : {0U, 323U, 324U}) {
    EXPECT_EQ(read(length).start_day, 1) << length;
    EXPECT_EQ(read(length).delay, 1) << length;
  }
  const std::string delayed = Record().substr(0, 325) + Number(0);
  EXPECT_EQ(ReadParameters(delayed.substr(0, 326), current).start_day, 6000);
  EXPECT_EQ(ReadParameters(delayed.substr(0, 326), current).delay, 1);
  EXPECT_EQ(ReadParameters(delayed, current).delay, 0);
}

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
    const char *bytes, *symbol, *title;
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
