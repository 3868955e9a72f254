// Databases as earlier programs wrote them: read as they are, moved over by the first writer.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

#include "quoteline/check.h"
#include "quoteline/store_creation.h"
#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::QuotelineWorld;
using Lines = std::vector<std::string>;

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

}  // namespace
}  // namespace vistaplot
