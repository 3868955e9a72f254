// What the store keeps: what is held twice is put right, what is not stays as it is and is named;
// databases of earlier programs; readers without the right to write.
#include "quoteline/store_contents.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quoteline/check.h"
#include "quoteline/history.h"
#include "quoteline/store_creation.h"
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

constexpr const char* kThree[] = {"AAA 2000-01-03 2000-01-06 3 First fund",
                                  "BBB 2000-01-04 2000-01-05 2 BBB",
                                  "CCC 1999-12-31 1999-12-31 1 Third"};
constexpr const char* kAaa =
    "2,2000-01-03,10\n3,2000-01-04,11.5\n4,2000-01-05,11.5\n5,2000-01-06,12.25\n";

/// A service with a database of the first form.
class FirstForm : public testing::Test {
 protected:
  FirstForm() {
    std::filesystem::copy_file(GOLDEN_FOLDER "/first_form.db",
                               world_.folder.Path("quoteline.db"),
                               std::filesystem::copy_options::overwrite_existing);
  }

  // The number of the form, from the database as it stands with its log.
  int Form() const {
    sqlite3* handle = nullptr;
    sqlite3_open(world_.folder.Path("quoteline.db").c_str(), &handle);
    int form = 0;
    const auto take = [](void* to, int, char** texts, char**) {
      *static_cast<int*>(to) = texts[0][0] - '0';
      return 0;
    };
    sqlite3_exec(handle, "PRAGMA user_version", take, &form, nullptr);
    sqlite3_close(handle);
    return form;
  }

  Lines Faults() const { return CheckService(world_.folder.Path()).faults; }

  QuotelineWorld world_;
};

TEST_F(FirstForm, IsReadAsItStandsAndTriedWithoutBeingMovedOver) {
  const auto tried = world_.Import("D.csv", "Date,Close\n2000-01-05,3\n", test::DryRun());
  EXPECT_TRUE(tried.faults.empty());
  EXPECT_EQ(tried.changes.size(), 1U);
  EXPECT_EQ(world_.List(), Lines(std::begin(kThree), std::end(kThree)));
  EXPECT_EQ(world_.Prices("AAA"), kAaa);
  EXPECT_EQ(Faults(), Lines{});
  EXPECT_EQ(Form(), 1);
}

TEST_F(FirstForm, IsMovedOverByTheFirstImportWithAllThatItHolds) {
  ASSERT_EQ(QLopen(), 0);  // a reader that stays open meanwhile
  ASSERT_TRUE(world_.Import("D.csv", "Date,Close\n2000-01-05,3\n").faults.empty());
  EXPECT_EQ(Form(), 2);
  EXPECT_EQ(QLgetMaxDays(), 5);
  EXPECT_EQ(QLisQLIssue("D"), -1);
  EXPECT_EQ(test::FetchPrices("AAA"), (std::vector<float>{-1, 10, 11.5F, 11.5F, 12.25F}));
  EXPECT_EQ(world_.List("???"), Lines(std::begin(kThree), std::end(kThree)));
  EXPECT_EQ(world_.Prices("AAA"), kAaa);
  EXPECT_EQ(Faults(), Lines{});
}

TEST_F(FirstForm, ADamagedHistoryStaysOneWhenItIsMovedOver) {
  // AAA with 13.25 on its last day.
  world_.Tamper(
      "UPDATE histories SET prices = x'00002041000038410000384100005441' WHERE issue = 1");
  EXPECT_EQ(Faults(), Lines{"AAA: its history is damaged"});
  ASSERT_TRUE(RebuildSymbols(world_.folder.Path()));
  EXPECT_EQ(Form(), 2);
  EXPECT_EQ(Faults(), Lines{"AAA: its history is damaged"});
  EXPECT_EQ(world_.Prices("BBB"), "3,2000-01-04,7\n4,2000-01-05,8\n5,2000-01-06,8\n");
}

TEST_F(FirstForm, AChangedRowIsPutRightFromTheIndex) {
  world_.Tamper("UPDATE issues SET symbol = 'AAX', name = 'Wrong' WHERE id = 1");
  ASSERT_TRUE(RebuildSymbols(world_.folder.Path()));
  EXPECT_EQ(world_.List(), Lines(std::begin(kThree), std::end(kThree)));
  EXPECT_EQ(Faults(), Lines{});
}

TEST_F(FirstForm, ARowThatIsNoIssueStaysOutAndIsNamed) {
  world_.Tamper("DELETE FROM symbols; UPDATE issues SET symbol = 'A A' WHERE id = 1");
  ASSERT_TRUE(RebuildSymbols(world_.folder.Path()));
  EXPECT_EQ(world_.List(), Lines(std::begin(kThree) + 1, std::end(kThree)));
  ASSERT_FALSE(Faults().empty());
  EXPECT_EQ(Faults().front().substr(0, 45), "issues: row 1, which reads \"A A\", is damaged,");
}

TEST_F(FirstForm, ADamagedCalendarIsNotMovedOver) {
  world_.Tamper("UPDATE service SET checksum = checksum + 1");
  EXPECT_FALSE(world_.Import("D.csv", "Date,Close\n2000-01-05,3\n").faults.empty());
  EXPECT_EQ(Form(), 1);
}

namespace fs = std::filesystem;

/// For its time this process may read the folder and not write it, also when it runs as root.
class WithoutRights {
 public:
  explicit WithoutRights(const std::string& folder) : folder_(folder) {
    ::chmod(folder.c_str(), 0555);
    if (::geteuid() == 0) was_root_ = ::seteuid(kNobody) == 0;
  }
  ~WithoutRights() {
    if (was_root_) static_cast<void>(!::seteuid(0));
    ::chmod(folder_.c_str(), 0755);
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  static constexpr uid_t kNobody = 65'534;
  std::string folder_;
  bool was_root_ = false;
};

/// A service whose last import lies in the log alone, as after a crash; no shared-memory file.
void LeaveTheLog(QuotelineWorld& world) {
  world.Import("A.csv", "Date,Close\n2000-01-03,10\n");
  sqlite3* reader = nullptr;  // holds the log back while the import is made
  sqlite3_open(world.folder.Path("quoteline.db").c_str(), &reader);
  sqlite3_exec(reader, "BEGIN; SELECT * FROM issues", nullptr, nullptr, nullptr);
  world.Import("B.csv", "Date,Close\n2000-01-04,7\n");
  for (const char* name : {"quoteline.db", "quoteline.db-wal"}) {
    fs::copy_file(world.folder.Path(name), world.files.Path(name));
  }
  sqlite3_close(reader);
  for (const char* name : {"quoteline.db", "quoteline.db-wal"}) {
    fs::rename(world.files.Path(name), world.folder.Path(name));
  }
  fs::remove(world.folder.Path("quoteline.db-shm"));
}

TEST(DatabaseRights, AReaderWithoutThemIsToldOfALogThatItCannotRead) {
  QuotelineWorld world;
  LeaveTheLog(world);
  ASSERT_GT(fs::file_size(world.folder.Path("quoteline.db-wal")), 0U);
  {
    const WithoutRights guard(world.folder.Path());
    const Lines told = world.List();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("quoteline.db-wal: holds changes that cannot be read"),
              std::string::npos)
        << told[0];
    EXPECT_EQ(QLopen(), QL_NO_DATABASE);
    EXPECT_EQ(CheckService(world.folder.Path()).faults.size(), 1U);
  }
  EXPECT_EQ(world.List(), (Lines{"A 2000-01-03 2000-01-03 1 A", "B 2000-01-04 2000-01-04 1 B"}));
  world.folder.Write("C.csv", "Date,Close\n2000-01-05,3\n");
  ::chmod(world.folder.Path("quoteline.db").c_str(), 0666);  // but not the folder
  {
    const WithoutRights guard(world.folder.Path());
    EXPECT_EQ(world.List().size(), 2U);  // the log is taken up
    ImportRequest request = test::DryRun();
    request.directory = world.folder.Path();
    request.files = {world.folder.Path("C.csv")};
    EXPECT_EQ(ImportPrices(request).changes.size(), 1U);
    const Lines told = world.ImportFiles(request.files).faults;
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("quoteline.db: you may not write in its folder"), std::string::npos)
        << told[0];
  }
}

TEST(DatabaseRights, SideFilesThatTheirOwnerMayNotWriteAreOpenedToHim) {
  QuotelineWorld world;
  LeaveTheLog(world);
  ::chmod(world.folder.Path("quoteline.db-wal").c_str(), 0400);
  // Root may write all the same: the rights themselves show what others would meet.
  sqlite3* reader = nullptr;
  sqlite3_open(world.folder.Path("quoteline.db").c_str(), &reader);
  sqlite3_exec(reader, "BEGIN; SELECT * FROM issues", nullptr, nullptr, nullptr);
  ::chmod(world.folder.Path("quoteline.db-shm").c_str(), 0400);
  EXPECT_EQ(world.List().size(), 2U);
  for (const char* name : {"quoteline.db-wal", "quoteline.db-shm"}) {
    EXPECT_EQ(fs::status(world.folder.Path(name)).permissions() & fs::perms::owner_all,
              fs::perms::owner_read | fs::perms::owner_write)
        << name;
  }
  sqlite3_close(reader);
}

}  // namespace
}  // namespace vistaplot
