// Result files of the sample from the file dialog to the sorted sheet, by scripts alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/files.h"
#include "base/number_text.h"
#include "base/text.h"
#include "batch/batch.h"
#include "quoteline/sample.h"
#include "support/quoteline_world.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

const std::string kRoot = VISTAPLOT_SOURCE_DIR;

class SampleResults : public testing::Test {
 protected:
  SampleResults() {
    service_.Import("A.csv", "Date,Close\n2000-01-03,10\n2000-01-04,11\n");
    for (const SampleFile& file : MakeSampleResults()) service_.folder.Write(file.path, file.bytes);
  }

  /// Runs a script on a service directory, this one's when none is named; its standard output.
  std::string Run(const std::string& script, const std::string& directory = {}) {
    Options options;
    options.quoteline_dir = directory.empty() ? service_.folder.Path() : directory;
    options.settings_file = folder_.Path("settings.ini");
    options.batch_script = folder_.Write("script.vps", script);
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunBatch(options, {}, {in, out, err}), 0) << err.str() << out.str();
    return out.str();
  }

  /// A script of the examples that draws no picture and writes `files` into the test's folder.
  std::string Example(const std::string& name, const std::vector<std::string>& files) const {
    const std::string text = ReadWholeFile(kRoot + "/examples/" + name).Value();
    std::string script;
    for (const std::string_view line : Split(text, '\n')) {
      if (!line.starts_with("export")) script.append(line).append("\n");
    }
    for (const std::string& file : files) {
      script.replace(script.rfind(file), file.size(), folder_.Path(file));
    }
    return script;
  }

  std::vector<std::string> Lines(const std::string& name) const {
    const std::string text = ReadWholeFile(folder_.Path(name)).Value();
    std::vector<std::string> lines;
    for (const std::string_view line : Split(text, '\n')) lines.emplace_back(line);
    return lines;
  }

  test::QuotelineWorld service_;
  test::TemporaryFolder folder_;
};

TEST_F(SampleResults, EveryKindIsImported) {
  const std::pair<std::string, const char*> cases[] = {
      {"0 SAMPLE.SUM", "\"MaxRow\": 102, \"MaxCol\": 17, \"FixedRows\": 2"},
      {"2 SAMPLE.VX1", "\"MaxRow\": 101, \"MaxCol\": 8, \"FixedRows\": 1"},
      {"3 sample.txt", "\"MaxRow\": 102, \"MaxCol\": 9, \"FixedRows\": 2"},
      {"4 SAMPLE.SSM", "\"MaxRow\": 102, \"MaxCol\": 10, \"FixedRows\": 2"},
      {"5 SAMPLE.SDT", "\"MaxRow\": 62, \"MaxCol\": 5, \"FixedRows\": 2"}};
  folder_.Write("settings.ini", "[startup]\nzpdir=C:\\QL\nvxdir=C:\\QL\nkestrldir=C:\\QL\n");
  for (const auto& [file, extent] : cases) {
    const std::string out =
        Run("set frmTab.cboDataType " + file.substr(0, 1) + "\nanswer open C:\\QL\\RESULTS\\" +
            file.substr(2) + "\nclick frmTab.cmdFileName\ndump sheets\n");
    EXPECT_NE(out.find(extent), std::string::npos) << out;
    EXPECT_EQ(out.find("\"message\""), std::string::npos) << out;
  }
}

TEST_F(SampleResults, TheFolderIsAskedForBeforeTheFile) {
  const std::string results = service_.folder.Path("RESULTS");
  const std::string script = "set frmTab.cboDataType 2\nanswer open " + results +
                             "/SAMPLE.VX1\nclick frmTab.cmdFileName\nset frmDir.Dir1 " + results +
                             "\nclick frmDir.cmdOK\ndump sheets\n";
  EXPECT_NE(Run(script).find("\"SAMPLE\""), std::string::npos);
  const std::vector<std::string> settings = Lines("settings.ini");
  EXPECT_NE(std::find(settings.begin(), settings.end(), "vxdir=" + results), settings.end());
}

TEST_F(SampleResults, TheExampleSortsCasesAndTrades) {
  Run(Example("results.vps", {"best-cases.csv", "best-trades.csv"}));
  const std::vector<std::string> cases = Lines("best-cases.csv");
  ASSERT_EQ(cases.size(), 103U);
  EXPECT_EQ(cases[0], ",  BUY  , SELL  ,  AVG  ,,,  MDD  ,,,   %  \r");
  // The made-up hill has its top between cases 36 and 37, equal but for the switches.
  EXPECT_TRUE(cases[2].starts_with("37  ,4   ,7   ,14.891  ,")) << cases[2];
  EXPECT_TRUE(cases[3].starts_with("36  ,4   ,6   ,14.891  ,")) << cases[3];
  const std::vector<std::string> trades = Lines("best-trades.csv");
  ASSERT_EQ(trades.size(), 63U);
  // Gains are 0.31 n - 5.2 percent, n from 0 to 49.
  EXPECT_TRUE(trades[2].ends_with(",9.990   \r")) << trades[2];
  EXPECT_TRUE(trades[61].ends_with(",-5.200  \r")) << trades[61];
}

TEST_F(SampleResults, TheSignalExampleEndsWithTheTradesOfTheBestPair) {
  const std::string demo = folder_.Path("demo");
  ASSERT_TRUE(FillWithSample(demo));
  const std::string out =
      Run(Example("signals.vps", {"signals.SSM", "signals.csv", "best-pair.csv"}), demo);
  EXPECT_EQ(out.find("\"message\""), std::string::npos) << out;
  const std::vector<std::string> cases = Lines("signals.csv");
  ASSERT_EQ(cases.size(), 67U) << "8 x 8 pairs below two rows of headings";
  const auto best = Split(cases[2], ',');
  for (std::size_t i = 3; i < 66; ++i) {
    EXPECT_GE(LeadingNumber(best[3]), LeadingNumber(Split(cases[i], ',')[3])) << cases[i];
  }
  const std::vector<std::string> rows = Lines("best-pair.csv");
  const auto trade = Split(rows[2], ',');
  EXPECT_EQ(trade[0], best[1]);
  EXPECT_EQ(trade[1], best[2]);
  // The equity line's end, a year at a time, is the case's annual gain.
  const auto end = Split(rows[rows.size() - 2], ',');
  ASSERT_EQ(end[5], "12/29/2023");
  const double years = (SerialFromDate({2023, 12, 29}) - SerialFromDate({1999, 1, 4})) / 365.0;
  const double annual = std::pow(1.0 + LeadingNumber(end[6]) / 100.0, 1.0 / years) - 1.0;
  EXPECT_NEAR(annual * 100.0, LeadingNumber(best[3]), 0.001);
}

}  // namespace
}  // namespace vistaplot
