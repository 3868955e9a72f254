// What is loaded into the table: prices of issues and families, and result files.
#include "import/result_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "formats/family_file.h"
#include "import/price_load.h"
#include "support/load_world.h"
#include "support/recording_dialogs.h"
#include "support/result_bytes.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {
namespace {

TEST(PriceLoad, ColumnsHoldPricesFromTheFirstDayOn) {
  LoadWorld world;
  world.api.SetDays(SerialFromDate({1999, 12, 30}), 4);
  world.api.AddIssue("OLD", {0.5F, 1234.56F, 16777216.0F, 0.1F});
  world.api.AddIssue("NEW", {12.0F, 13.25F}, 3);
  world.Begin();
  const std::vector<std::string> entries{"OLD   Name", "NEW   Name", "NONE  "};
  LoadSelectedIssues(world.services, world.load, entries);
  FinishPriceSheet(world.services, world.load);

  EXPECT_EQ(world.Row(1, 1), "|OLD|NEW|NONE");
  EXPECT_EQ(world.Row(1, 2), "12/30/1999|0.5|-1|-1");
  EXPECT_EQ(world.Row(1, 3), "12/31/1999|1234.56|-1|-1");
  EXPECT_EQ(world.Row(1, 4), "01/01/2000|16777220|12|-1");
  EXPECT_EQ(world.Row(1, 5), "01/02/2000|0.1|13.25|-1");
  const Sheet& sheet = world.table.SheetAt(1);
  EXPECT_EQ(sheet.SheetName, "Funds");
  EXPECT_EQ(sheet.MaxRow, 5);
  EXPECT_EQ(sheet.FixedRows, 1);
  EXPECT_EQ(sheet.FixedCols, 1);
  EXPECT_TRUE(world.dialogs.messages.empty());
  EXPECT_EQ(world.market.LastStatus, -5);
}

TEST(PriceLoad, IssuesBeyond255AreSkippedAndALoadStartsAnew) {
  LoadWorld world;
  world.api.SetDays(33000, 2);
  world.api.AddIssue("ABC", {1.0F, 2.0F});
  world.Begin();
  LoadSelectedIssues(world.services, world.load, std::vector<std::string>(300, "ABC   "));
  FinishPriceSheet(world.services, world.load);
  EXPECT_EQ(world.load.IssueColumnCount, 255);
  EXPECT_EQ(world.table.SheetAt(1).MaxCol, 256);
  EXPECT_EQ(world.table.SheetAt(1).CellText(1, 257), "");

  world.table.SetSheetCount(9);
  world.Begin();
  EXPECT_EQ(world.table.SheetAt(1).CellText(1, 2), "");
  FinishPriceLoad(world.table);
  EXPECT_EQ(world.table.SheetCount(), 3);
  EXPECT_EQ(world.table.ActiveSheet(), 1);
}

/// A service directory with the families A (two issues), B (one) and CUT (one of two).
class FamilyLoad : public testing::Test {
 protected:
  FamilyLoad() {
    world_.api.SetDays(33000, 2);
    world_.api.AddIssue("X", {1.0F, 2.0F});
    world_.api.AddIssue("Y", {3.0F, 4.0F});
    world_.market.QuotelineDir = ql_.Path();
    ql_.Write("QLDEF/A.FAM", Bytes({"X", "Y"}));
    ql_.Write("USERDEF/B.FAM", Bytes({"Y"}));
    ql_.Write("USERDEF/EMPTY.FAM", Bytes({}));
    ql_.Write("USERDEF/CUT.FAM", Bytes({"Y", "X"}).substr(0, 116 + 19 + 4));
    world_.Begin();
  }

  static std::string Bytes(const std::vector<std::string>& symbols) {
    return FamilyFileBytes({}, symbols).Value();
  }

  void Load(const std::vector<std::string>& entries) {
    LoadSelectedFamilies(world_.services, {ql_.Path(), {}, {}}, world_.load, entries);
    FinishPriceSheet(world_.services, world_.load);
  }

  TemporaryFolder ql_;
  LoadWorld world_;
};

TEST_F(FamilyLoad, SeveralFamiliesFollowEachOtherAndTheLastOneIsRemembered) {
  Load({"A        Title", "B        Title"});
  EXPECT_EQ(world_.Row(1, 1), "|X|Y|Y");
  EXPECT_EQ(world_.table.SheetAt(1).SheetName, "B");
  EXPECT_EQ(world_.load.FamilyPath, ql_.Path("USERDEF/B.FAM"));
  EXPECT_EQ(world_.load.family_symbols, std::vector<std::string>{"Y"});

  Load({"EMPTY    "});
  EXPECT_EQ(world_.table.SheetAt(1).SheetName, "EMPTY");
  EXPECT_TRUE(world_.load.family_symbols.empty());
}

TEST_F(FamilyLoad, AMissingFamilyStopsTheLoadAndKeepsWhatIsThere) {
  Load({"A        ", "LONGERTH ", "B        "});
  EXPECT_EQ(world_.Row(1, 1), "|X|Y");
  EXPECT_EQ(world_.dialogs.Texts(),
            std::vector<std::string>{"Family not found.  Please check to make sure your family "
                                     "name is 8 characters or less"});
}

TEST_F(FamilyLoad, ACutFamilyGivesItsWholeEntriesAndAnError) {
  Load({"CUT      ", "B        "});
  EXPECT_EQ(world_.Row(1, 1), "|Y");
  EXPECT_EQ(world_.dialogs.Texts(),
            std::vector<std::string>{"Error selected families: 62 Input past end of file"});
}

class ResultFiles : public testing::Test {
 protected:
  Sheet& Shown() { return table_.Active(); }

  /// The texts of a row's first cells, with "|" between them.
  std::string Row(int row, int columns) {
    std::string texts = Shown().CellText(row, 1);
    for (int col = 2; col <= columns; ++col) texts.append("|").append(Shown().CellText(row, col));
    return texts;
  }

  std::string File(const std::string& bytes) { return folder_.Write("A.DAT", bytes); }

  void ExpectEndsAt(int row, int col) {
    EXPECT_TRUE(Shown().MaxRow == row && Shown().MaxCol == col) << Shown().MaxRow;
    EXPECT_TRUE(Shown().Row == row && Shown().Col == col) << Shown().Row;
    EXPECT_EQ(Shown().selection, (std::vector<CellRange>{{row, col, row, col}}));
    EXPECT_EQ(Shown().FixedCols, 0);
  }

  TemporaryFolder folder_;
  SilentProgress progress_;
  DataTable table_;
  ImportTarget target_{table_, progress_};
};

TEST_F(ResultFiles, ZephyrineRecordsShowAsTheyStandBelowTwoHeadings) {
  const std::string bytes = LongSum(" 1", "  12.500") + LongSum(" 2", "-3");
  ASSERT_EQ(bytes.size(), 238U);
  ASSERT_TRUE(LoadZephyrineSummary(target_, File(bytes)));
  ExpectEndsAt(4, 17);
  EXPECT_EQ(Shown().FixedRows, 2);
  EXPECT_EQ(Row(1, 17),
            "TEST||||  AVG   |MAX DRAW|  MDD   |ULCER|ULCER|   %   |% AVG GAIN|% AVG GAIN|"
            "% AVG LOSS| AVG | STRATEGY | STRATEGY | STRATEGY ");
  EXPECT_EQ(Row(2, 17),
            "CASE|BUY|SELL|S/Y|ANNUAL %| DOWN % |  DATE  |INDEX|PERF INDEX|WINNERS| PER BUY |"
            " WINNERS  |  LOSERS  | STRF |   BETA   |   CORR   |  ALPHA   ");
  EXPECT_EQ(Row(3, 17),
            " 1  |   1|   2|   3|  12.500|       4|07/23/02|   5|   6|    7|       8|       9|"
            "      10|  11|  0.85|  0.91| -1.25");
  EXPECT_EQ(Shown().CellText(4, 5), "-3      ");
  EXPECT_EQ(Shown().CellNumber(4, 5), -3.0);
  std::string widths;
  for (int col = 1; col <= 17; ++col) widths += Shown().ColumnWidth(col) == 3400 ? 'w' : '.';
  EXPECT_EQ(widths, "....wwwwwwwww.www");
  EXPECT_EQ(Shown().ColumnWidth(1), 2000);
}

TEST_F(ResultFiles, ShortZephyrineRecordsHaveNoBeta) {
  ASSERT_TRUE(LoadZephyrineSummary(target_, File(ShortSum("1", "2") + ShortSum("9", "8"))));
  ExpectEndsAt(4, 17);
  for (int col = 15; col <= 17; ++col) EXPECT_EQ(Shown().CellText(4, col), "  0.00");
  EXPECT_EQ(Shown().CellText(4, 1), "9   ");
  EXPECT_EQ(Shown().CellText(4, 14), "  11");
}

TEST_F(ResultFiles, RecordsAreReadAsFarAsTheyAreWhole) {
  struct Case {
    Status (*load)(const ImportTarget&, const std::string&);
    std::string record;
    int max_col;
  };
  const Case cases[] = {{LoadZephyrineSummary, ShortSum("1", "2"), 17},
                        {LoadSummaryFile, Ssm("1", "12.500"), 10},
                        {LoadDetailFile, Sdt("01/04/99", "-5.2"), 5}};
  for (const Case& c : cases) {
    ASSERT_TRUE(c.load(target_, File("")));
    ExpectEndsAt(2, c.max_col);
    for (std::size_t cut = 0; cut < c.record.size(); ++cut) {
      // 98 + 21 bytes would be one long record.
      if (c.record.size() + cut == 119) continue;
      ASSERT_TRUE(c.load(target_, File(c.record + c.record.substr(0, cut))));
      ExpectEndsAt(3, c.max_col);
    }
  }
}

TEST_F(ResultFiles, SummaryAndDetailRecordsShowAsTheyStand) {
  Shown().SetColumnWidth(4, 1234);
  ASSERT_TRUE(LoadSummaryFile(target_, File(Ssm("1", "12.500") + Ssm("2", "7"))));
  ExpectEndsAt(4, 10);
  EXPECT_EQ(Shown().FixedRows, 2);
  EXPECT_EQ(Row(1, 10), "|  BUY  | SELL  |  AVG  |||  MDD  |||   %  ");
  EXPECT_EQ(Row(2, 10),
            " CASE  |SIGS IN|SIGS IN| ANN % |  S/Y  | MDD % |  DATE |  UI   |  UPI  |WINNERS");
  EXPECT_EQ(Row(3, 10),
            "1   |2   |3   |12.500  |1.5 |20.250  |07/23/02|4.500   |1.250   |66.67   ");
  EXPECT_EQ(Shown().ColumnWidth(4), 1234) << "widths are unchanged";

  const std::string trades = Sdt("01/04/99", "-5.2") + Sdt("02/04/99", "1") + Sdt("03/04/99", "2");
  ASSERT_EQ(trades.size(), 120U);
  ASSERT_TRUE(LoadDetailFile(target_, File(trades)));
  ExpectEndsAt(5, 5);
  EXPECT_EQ(Row(1, 6), "  BUY  | SELL  |  BUY  | TRADE | TRADE |");
  EXPECT_EQ(Row(2, 6), "SIGS IN|SIGS IN|  DATE | DATE  | GAIN  |");
  EXPECT_EQ(Row(3, 6), "5   |3   |01/04/99|12/31/10|-5.2    |");
}

TEST_F(ResultFiles, VornaxilKindDecidesTheColumns) {
  //                           1         2         3         4         5         6         7
  //                  123456789.123456789.123456789.123456789.123456789.123456789.123456789.1234
  const std::string row =
      "  aaaaaaa1 bbbbbbb2 ccccccc3    ddddddd4 eeeeeee5 ffffff 6  ggggggg7hhhhh8";
  auto kind = LoadVornaxilFile(target_, File(Vx1("MA", {row, "  9", "last"})), "");
  ASSERT_TRUE(kind);
  EXPECT_EQ(kind.Value(), "SM ");
  ExpectEndsAt(3, 8);
  EXPECT_EQ(Shown().FixedRows, 1);
  EXPECT_EQ(Row(1, 8), "PARM 1| PARM 2| PARM 3|   Ra|   Mr|   Tr|   SY  |   Rsk");
  EXPECT_EQ(Row(2, 8), "aaaaaaa1|bbbbbbb2|ccccccc3|ddddddd4|eeeeeee5|ffffff 6|ggggggg7|7hhhhh");
  EXPECT_EQ(Row(3, 8), "9|||||||");
  EXPECT_EQ(Shown().ColumnWidth(1), 2000);
  EXPECT_EQ(Shown().ColumnWidth(8), 2800);

  kind = LoadVornaxilFile(target_, File(Vx1("ma", {row, "last"})), "SM ");
  EXPECT_EQ(kind.Value(), "APM");
  ExpectEndsAt(2, 7);
  EXPECT_EQ(Row(1, 7), "PARM 1| PARM 2|   Ra|   Mr|   Tr|   SY  |   Rsk");
  EXPECT_EQ(Row(2, 7), "aaaaaaa1|bbbbbbb2|cccc3   |ddddddd4|eeeeeee5|ffffff 6|  gggg");
}

TEST_F(ResultFiles, AVornaxilFileWithoutAKindKeepsTheOneBefore) {
  for (const char* bytes : {"", "title", "title\r\n     XX\r\n"}) {
    EXPECT_EQ(LoadVornaxilFile(target_, File(bytes), "SM ").Value(), "SM ");
    ExpectEndsAt(1, 8);
    EXPECT_EQ(Shown().CellText(1, 3), " PARM 3");
    EXPECT_EQ(LoadVornaxilFile(target_, File(bytes), "").Value(), "");
    ExpectEndsAt(1, 7);
  }
}

TEST_F(ResultFiles, KestrelixFieldsAreTrimmedAndTheTitleIsNot) {
  const std::string bytes =
      "  My test  \r\nskipped\r\n"
      " No   Case    Days   Level   Annual      MDD       UI      UPI      Win\r\n"
      "  1     T1       5     0.5    12.50    20.25     4.50     1.25    66.67\r\n"
      "  2 short\r\n"
      "last line\r\n";
  ASSERT_TRUE(LoadKestrelixFile(target_, File(bytes)));
  ExpectEndsAt(4, 9);
  EXPECT_EQ(Shown().FixedRows, 2);
  EXPECT_EQ(Row(1, 3), "  My test  ||");
  EXPECT_EQ(Row(2, 9), "No|Case|Days|Level|Annual|MDD|UI|UPI|Win");
  EXPECT_EQ(Row(3, 9), "1|T1|5|0.5|12.50|20.25|4.50|1.25|66.67");
  EXPECT_EQ(Row(4, 9), "2|short|||||||");
  for (const char* title_alone : {"Title", "Title\n", "Title\nskipped", "Title\nskipped\nlast"}) {
    ASSERT_TRUE(LoadKestrelixFile(target_, File(title_alone)));
    ExpectEndsAt(1, 9);
    EXPECT_EQ(Row(1, 2), "Title|");
    EXPECT_EQ(Row(2, 1), "");
  }
}

TEST_F(ResultFiles, AFileThatCannotBeReadLeavesAnEmptySheet) {
  ASSERT_TRUE(LoadDetailFile(target_, File(Sdt("01/04/99", "1"))));
  const std::string pipe = folder_.Path("PIPE.SSM");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::pair<std::string, int> cases[] = {{folder_.Path("GONE.SSM"), 53},
                                               {folder_.Path("NONE/A.SSM"), 76},
                                               {folder_.Path(), 75},
                                               {pipe, 75}};
  for (const auto& [path, number] : cases) {
    const Status read = LoadSummaryFile(target_, path);
    ASSERT_FALSE(read) << path;
    EXPECT_EQ(read.Error().number, number) << path;
    EXPECT_EQ(Shown().MaxRow, 0);
    EXPECT_EQ(Row(1, 3), "||");
    EXPECT_EQ(Row(3, 3), "||");
    EXPECT_TRUE(Shown().selection.empty());
  }
  const std::string huge = File("");
  std::filesystem::resize_file(huge, kMostRecordBytes + 1);
  EXPECT_EQ(LoadSummaryFile(target_, huge).Error().description, "larger than 1907 MiB");
  const std::string ends = File(std::string(4'000'000, '\n'));
  EXPECT_EQ(LoadVornaxilFile(target_, ends, "").Error().number, 6) << "five bytes a byte";
  EXPECT_EQ(LoadKestrelixFile(target_, ends).Error().number, 6);
  EXPECT_TRUE(LoadSummaryFile(target_, ends));
}

TEST_F(ResultFiles, ForeignBytesShowAsTheyAre) {
  ASSERT_TRUE(LoadSummaryFile(target_, File(std::string(77, '\0') + std::string(77, '\xFC'))));
  ExpectEndsAt(4, 10);
  EXPECT_EQ(Shown().CellText(3, 1), std::string(4, '\0'));
  EXPECT_EQ(Shown().CellText(4, 1), "\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC");
  EXPECT_EQ(Shown().CellNumber(4, 4), 0.0);
}

}  // namespace
}  // namespace vistaplot::test
