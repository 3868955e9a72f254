#include "formats/parameter_file.h"

#include <gtest/gtest.h>

namespace vistaplot {
namespace {

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
  EXPECT_TRUE(read.makes_signal_fnu);
  EXPECT_FALSE(read.makes_composite);
  EXPECT_TRUE(read.makes_detail) << "a check value other than 0 is set";
  EXPECT_FALSE(read.is_two_dimensional);
  EXPECT_TRUE(read.makes_summary);
  EXPECT_EQ(read.composite_path, Field("C:\\QL\\SIG\\COMP.SIG", 50));
  EXPECT_EQ(read.fnu_path, Field("C:\\QL\\E.FNU", 50));
  EXPECT_EQ(read.fnu_symbol, "EQUI ");
  EXPECT_EQ(read.fnu_title, "Signal \xC3\xA9quity" + std::string(27, ' '));
  EXPECT_EQ(read.detail_path, Field("D.SDT", 50));
  EXPECT_EQ(read.family_path, Field("F.SFM", 50));
  EXPECT_EQ(read.in_fund, "FNDIN");
  EXPECT_EQ(read.out_fund, "CASH ");
  EXPECT_EQ(read.buy_from, 1);
  EXPECT_EQ(read.buy_to, 300);
  EXPECT_EQ(read.sell_from, -2);
  EXPECT_EQ(read.sell_to, 12);
  EXPECT_EQ(read.summary_path, Field("S.SSM", 50));
  EXPECT_EQ(read.start_day, 6000);
  EXPECT_EQ(read.delay, 1);
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

}  // namespace
}  // namespace vistaplot
