#include <gtest/gtest.h>

#include "marketdata/issue_lists.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

TEST(FamilyFiles, AMissingOrShortFileIsAnErrorThatNamesIt) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(ReadFamilyFile(folder.Path("NONE.FAM")).Error().number, 53);
  const auto cut = ReadFamilyFile(folder.Write("CUT.FAM", std::string(115, ' ')));
  EXPECT_EQ(cut.Error().number, 62);
  EXPECT_EQ(cut.Error().subject, folder.Path("CUT.FAM"));
}

TEST(FamilyFiles, AreSoughtInThreeFoldersInOrder) {
  const test::TemporaryFolder ql;
  const PathRoots roots{ql.Path(), {}, {}};
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), "");
  ql.Write("QL4WIN/SQLDEF/DOW.FAM", "");
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), ql.Path("QL4WIN/SQLDEF/DOW.FAM"));
  ql.Write("USERDEF/dow.fam", "");
  EXPECT_EQ(FindFamilyFile("DOW", ql.Path(), roots), ql.Path("USERDEF/DOW.FAM"));
  ql.Write("QLDEF/DOW.FAM", "");
  EXPECT_EQ(FindFamilyFile("DOW", "c:\\ql", roots), "c:\\ql/QLDEF/DOW.FAM");
}

}  // namespace
}  // namespace vistaplot
