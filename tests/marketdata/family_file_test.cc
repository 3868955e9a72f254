#include "marketdata/family_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/temporary_folder.h"

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

TEST(FamilyFile, WrittenFileIsTheFormatAndReadsBack) {
  const std::vector<std::string> symbols{"IP", "GM"};
  std::string expected = TwoIssues();
  std::replace(expected.begin(), expected.end(), '\x07', ' ');
  EXPECT_EQ(
      FamilyFileBytes({"DOW15", "Stocks of the Dow", 0, std::string(34, '?')}, symbols).Value(),
      expected);
}

TEST(FamilyFile, FileCutAnywhereGivesItsWholeEntriesOrAnError) {
  const test::TemporaryFolder folder;
  const std::string whole = TwoIssues();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const auto family = ReadFamilyFile(folder.Write("A.FAM", whole.substr(0, length)));
    if (length < 116) {
      ASSERT_FALSE(family) << length;
      EXPECT_EQ(family.Error().number, 62);
      continue;
    }
    const std::size_t entries = (length >= 121 ? 1U : 0U) + (length >= 140 ? 1U : 0U);
    EXPECT_EQ(family.Value().symbols.size(), entries) << length;
    EXPECT_EQ(family.Value().cut_off, entries < 2) << length;
  }
  EXPECT_EQ(ReadFamilyFile(folder.Path("NONE.FAM")).Error().number, 53);
}

TEST(FamilyFile, NegativeCountHasNoEntries) {
  std::string bytes = TwoIssues();
  bytes[81] = '\xFF';
  const test::TemporaryFolder folder;
  EXPECT_TRUE(ReadFamilyFile(folder.Write("A.FAM", bytes)).Value().symbols.empty());
}

TEST(FamilyFile, IsSoughtInThreeFoldersInOrder) {
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
