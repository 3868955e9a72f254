#include "import/price_load.h"

#include <gtest/gtest.h>

#include "formats/family_file.h"
#include "support/load_world.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

TEST(PriceLoad, ColumnsHoldPricesFromTheFirstDayOn) {
  test::LoadWorld world;
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
  test::LoadWorld world;
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

  test::TemporaryFolder ql_;
  test::LoadWorld world_;
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

}  // namespace
}  // namespace vistaplot
