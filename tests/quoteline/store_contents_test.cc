// What is held twice is put right; what is not stays as it is and is named.
#include "quoteline/store_contents.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quoteline/check.h"
#include "quoteline/history.h"
#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::FetchPrices;
using test::QuotelineWorld;
using Lines = std::vector<std::string>;

constexpr const char* kTwoIssues =
    "Symbol,Date,Close,Name\nA,2000-01-03,10,One\nA,2000-01-05,12,\nB,2000-01-04,7,Two\n";
constexpr const char* kMore = "Date,Close\n2000-01-06,1\n";

Lines TwoIssues() {
  return {"A 2000-01-03 2000-01-05 2 One", "B 2000-01-04 2000-01-04 1 Two"};
}

Lines Faults(const QuotelineWorld& world) {
  return CheckService(world.folder.Path()).faults;
}

class Damage : public testing::TestWithParam<const char*> {};

TEST_P(Damage, ToOneOfTwoCopiesHidesNothingStopsChangesAndIsPutRight) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.Tamper(GetParam());
  EXPECT_EQ(world.List(), TwoIssues());
  ASSERT_EQ(Faults(world).size(), 1U);
  EXPECT_NE(Faults(world).front().find("\"quoteline rebuild\" puts it right"), std::string::npos);
  EXPECT_FALSE(world.Import("C.csv", kMore).faults.empty());
  EXPECT_FALSE(RemoveIssues(world.folder.Path(), {"B"}));
  const auto rebuilt = RebuildSymbols(world.folder.Path());
  ASSERT_TRUE(rebuilt);
  EXPECT_TRUE(rebuilt.Value().left_out.empty());
  EXPECT_EQ(Faults(world), Lines{});
  EXPECT_EQ(world.List(), TwoIssues());
  EXPECT_EQ(world.Prices("A"), "1,2000-01-03,10\n2,2000-01-04,10\n3,2000-01-05,12\n");
  EXPECT_TRUE(world.Import("C.csv", kMore).faults.empty());
}

INSTANTIATE_TEST_SUITE_P(All,
                         Damage,
                         testing::Values("UPDATE issues SET symbol = 'AX' WHERE id = 1",
                                         "UPDATE issues SET name = 'Onf' WHERE id = 1",
                                         "UPDATE issues SET first_day = 2 WHERE id = 1",
                                         "UPDATE issues SET prices = 3 WHERE id = 1",
                                         "UPDATE issues SET checksum = 5 WHERE id = 1",
                                         "UPDATE issues SET priced_checksum = 5 WHERE id = 1",
                                         "UPDATE issues SET row_checksum = 5 WHERE id = 1",
                                         "UPDATE issues SET id = 9 WHERE id = 1",
                                         "DELETE FROM issues WHERE id = 1",
                                         "UPDATE service SET stamp = stamp + 1",
                                         "UPDATE service SET calendar = zeroblob(12)",
                                         "DELETE FROM service",
                                         "UPDATE service_copy SET calendar = zeroblob(12)"));

TEST(StoreContents, ADamagedRowWithoutIndexIsLeftOutUntilItIsRemovedByItsNumber) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.Tamper("DELETE FROM symbols; UPDATE issues SET symbol = 'X' WHERE id = 1");
  EXPECT_EQ(QLopen(), QL_BAD_SYMBOLS);
  EXPECT_EQ(QLrebuildSymbols(), 0);
  EXPECT_EQ(FetchPrices("B"), (std::vector<float>{-1, 7, 7}));
  QLclose();
  // Once more: the damaged row is neither taken for the truth nor thrown away.
  const auto rebuilt = RebuildSymbols(world.folder.Path());
  ASSERT_TRUE(rebuilt);
  ASSERT_EQ(rebuilt.Value().left_out.size(), 1U);
  EXPECT_NE(rebuilt.Value().left_out.front().find("\"quoteline remove '#1'\""), std::string::npos);
  EXPECT_EQ(world.List(), Lines{"B 2000-01-04 2000-01-04 1 Two"});
  EXPECT_FALSE(world.Import("C.csv", kMore).faults.empty());
  EXPECT_FALSE(RemoveIssues(world.folder.Path(), {"#2"}));  // whole
  EXPECT_TRUE(RemoveIssues(world.folder.Path(), {"#1"}));
  EXPECT_TRUE(world.Import("A.csv", "Date,Close\n2000-01-03,10\n2000-01-05,12\n").faults.empty());
  EXPECT_EQ(Faults(world), Lines{});
}

TEST(StoreContents, NothingIsWrittenToAFileWhosePagesAreInDisorder) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  std::string bytes = world.folder.Read("quoteline.db");
  bytes[39] = 1;  // a free page is counted that is not there
  world.folder.Write("quoteline.db", bytes);
  EXPECT_EQ(world.List(), TwoIssues());
  EXPECT_FALSE(Faults(world).empty());
  EXPECT_FALSE(world.Import("C.csv", kMore).faults.empty());
  EXPECT_FALSE(RebuildSymbols(world.folder.Path()));
  EXPECT_FALSE(RemoveIssues(world.folder.Path(), {"A"}));
  EXPECT_EQ(world.folder.Read("quoteline.db"), bytes);
}

// The bytes as the format's page has them: symbol, first day, days, prices.
TEST(StoreContents, AHistorysCheckValueIsOfItsSymbolItsDaysAndItsPrices) {
  const std::string_view bytes("AB\0\0\0\0\0\0\x02\0\0\0\x01\0\0\0\0\0\x20\x41", 20);
  const float price = 10.0F;
  EXPECT_EQ(HistoryChecksum(*KeyOf("AB"), 2, std::span(&price, 1)),
            Crc32cByTable(std::as_bytes(std::span(bytes))));
}

TEST(StoreContents, AHistoryUnderAnotherIssuesNumberIsNoneOfIt) {
  QuotelineWorld world;
  world.Import("w.csv", "Date,A,B\n2000-01-03,5,7\n2000-01-04,6,8\n");
  world.Tamper(
      "UPDATE histories SET issue = 9 WHERE issue = 1; UPDATE histories SET issue = 1 WHERE issue"
      " = 2; UPDATE histories SET issue = 2 WHERE issue = 9");
  ASSERT_EQ(QLopen(), 0);
  EXPECT_TRUE(FetchPrices("A").empty());
  EXPECT_TRUE(FetchPrices("B").empty());
}

std::span<const std::byte> BytesOf(std::string_view text) {
  return std::as_bytes(std::span(text));
}

// The check value of the catalogue of CRC algorithms, and RFC 3720, appendix B.4.
TEST(Crc32c, HasThePublishedValues) {
  std::string ascending;
  for (char c = 0; c < 32; ++c) ascending += c;
  const struct {
    std::string text;
    std::uint32_t value;
  } cases[] = {{"", 0},
               {"123456789", 0xE3069283U},
               {std::string(32, '\0'), 0x8A9136AAU},
               {std::string(32, '\xFF'), 0x62A8AB43U},
               {ascending, 0x46DD794EU}};
  for (const auto& one : cases) {
    EXPECT_EQ(Crc32c(BytesOf(one.text)), one.value);
    EXPECT_EQ(Crc32cByTable(BytesOf(one.text)), one.value);
  }
}

TEST(Crc32c, TableAndInstructionAgreeAtEveryLengthAndPlace) {
  std::string text;
  std::uint32_t seed = 1;
  for (int i = 0; i < 60'000; ++i) {
    seed = seed * 1664525U + 1013904223U;
    text += static_cast<char>(seed >> 24U);
  }
  const auto bytes = BytesOf(text);
  for (std::size_t length = 0; length < 900; ++length) {
    const auto part = bytes.subspan(length % 16, length);
    ASSERT_EQ(Crc32c(part), Crc32cByTable(part)) << length;
  }
  // Around whole triples of the longer blocks, and in two pieces.
  for (const std::size_t length : {3071U, 3072U, 3073U, 3456U, 6144U, 48'000U, 59'999U}) {
    const auto part = bytes.first(length);
    const std::uint32_t value = Crc32cByTable(part);
    EXPECT_EQ(Crc32c(part), value) << length;
    EXPECT_EQ(Crc32c(part.subspan(1000), Crc32c(part.first(1000))), value) << length;
  }
}

}  // namespace
}  // namespace vistaplot
