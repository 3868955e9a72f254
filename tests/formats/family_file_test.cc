#include "formats/family_file.h"

#include <gtest/gtest.h>

#include <algorithm>

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

}  // namespace
}  // namespace vistaplot
