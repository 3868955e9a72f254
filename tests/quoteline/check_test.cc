#include "quoteline/check.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "formats/family_file.h"
#include "quoteline/administration.h"
#include "quoteline/family_folders.h"
#include "quoteline/sample.h"
#include "quoteline/store.h"
#include "quoteline/store_creation.h"
#include "support/quoteline_world.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using test::QuotelineWorld;
using Lines = std::vector<std::string>;

constexpr const char* kTwoIssues = "Date,A,B\n2000-01-03,10,\n2000-01-04,11.5,7\n2000-01-05,12,8\n";

struct Fault {
  const char* sql;
  const char* text;  // the beginning of a fault that check names
};

TEST(Check, NamesWhatIsWrongInTheDatabase) {
  const Fault faults[] = {
      {"UPDATE histories SET prices = zeroblob(12) WHERE issue = 1", "A: its history is damaged"},
      {"UPDATE histories SET priced = x'05' WHERE issue = 1", "A: its history is damaged"},
      {"DELETE FROM histories WHERE issue = 2",
       "B: its history is missing, or does not fit its days"},
      {"UPDATE issues SET last_day = 2 WHERE symbol = 'A'", "A: its row 1 among the issues"},
      {"UPDATE issues SET symbol = 'A' WHERE symbol = 'B'", "B: its row 2 among the issues"},
      {"UPDATE issues SET name = 'x' WHERE symbol = 'A'", "A: its row 1 among the issues"},
      {"UPDATE issues SET id = 7 WHERE symbol = 'A'", "A: its row 1 among the issues"},
      {"DELETE FROM issues WHERE symbol = 'A'", "A: its row 1 among the issues"},
      {"DELETE FROM symbols; UPDATE issues SET last_day = 2 WHERE symbol = 'A'",
       "issues: row 1, which reads \"A\", is damaged, and the symbol index does not tell"},
      {"DELETE FROM symbols; DELETE FROM issues WHERE symbol = 'A'", "history 1 has no issue"},
      {"DELETE FROM symbols; DELETE FROM issues WHERE symbol = 'A'",
       "calendar: no issue has a price on 2000-01-03 (day 1)"},
      {"DROP TABLE symbols", "/quoteline.db: the symbol index is missing or damaged"},
      {"UPDATE service SET stamp = stamp + 1", "calendar: is damaged, but its copy is whole"},
      {"DELETE FROM service_copy", "calendar: its copy is damaged"},
      {"UPDATE service SET checksum = 0; DELETE FROM service_copy",
       "/quoteline.db: the market calendar is damaged"},
  };
  for (const Fault& fault : faults) {
    QuotelineWorld world;
    world.Import("w.csv", kTwoIssues);
    ASSERT_EQ(CheckService(world.folder.Path()).faults, Lines{});
    world.Tamper(fault.sql);
    const Lines named = CheckService(world.folder.Path()).faults;
    EXPECT_TRUE(std::any_of(
        named.begin(),
        named.end(),
        [&](const std::string& text) { return text.find(fault.text) != std::string::npos; }))
        << fault.sql << "\n"
        << testing::PrintToString(named);
  }
}

TEST(Check, NamesBrokenSeriesAndFamilies) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  const std::string family =
      FamilyFileBytes({.name = "F", .title = "T"}, Lines{"A", "s", "GONE"}).Value();
  world.folder.Write("QLDEF/F.FAM", family);
  world.folder.Write("QLDEF/SHORT.FAM", family.substr(0, 115));
  world.folder.Write("USERDEF/CUT.fam", family.substr(0, 116 + 2 * 19 + 18));
  world.folder.Write("USERDEF/NINELONGS.FAM", family.substr(0, 80) + std::string(36, '\0'));
  std::filesystem::remove_all(world.folder.Path("QL4WIN/SQLDEF"));
  world.folder.Write("a.fnu", "A\nhidden\n\"01/04/2000\",1,0\n");
  world.folder.Write("bad.fnu", "TOOLONG\nx\n\"01/04/2000\",1,0\n");
  world.folder.Write("cut.FNU", "C\nx\n\"01/04/2000\",1,0\n\"01/05/2000\",");
  world.folder.Write("s.fnu", "S\nx\n01/04/00,1\n");
  world.folder.Write("t.fnu", "s\nx\n01/04/00,2\n");
  const CheckReport report = CheckService(world.folder.Path());
  const std::string too_long =
      "USERDEF/NINELONGS.FAM: its name has more than 8 characters, so that it cannot be loaded";
  EXPECT_EQ(report.faults,
            (Lines{"bad.fnu:1: the symbol is not 1 to 5 characters without blanks",
                   "cut.FNU:4: no date and value",
                   "t.fnu: its symbol S is that of s.fnu",
                   "QLDEF/F.FAM: no such issue: \"GONE\"",
                   "QLDEF/SHORT.FAM: is shorter than a family's header",
                   "QL4WIN/SQLDEF: the folder is missing; \"quoteline init\" makes it",
                   "USERDEF/CUT.fam: counts 3 symbols but holds 2",
                   too_long}));
  EXPECT_EQ(report.notes, Lines{"a.fnu: hidden by the database's issue A"});
  EXPECT_EQ(report.fnu_series, 1U);
}

TEST(Check, ABrokenDatabaseIsOneFaultAndNotOneOfEveryFamily) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.folder.Write("QLDEF/F.FAM",
                     FamilyFileBytes({.name = "F", .title = "T"}, Lines{"A", "B"}).Value());
  world.folder.Write("s.fnu", "S\nx\n01/04/00,1\n");
  world.Tamper("DROP TABLE issues");
  const CheckReport report = CheckService(world.folder.Path());
  for (const std::string& fault : report.faults) {
    EXPECT_NE(fault.find("quoteline.db"), std::string::npos) << fault;
  }
  EXPECT_FALSE(report.faults.empty());
  EXPECT_EQ(report.notes.size(), 1U);
}

TEST(Check, ADamagedIssueCanBeRemovedAndReplacedButNotMerged) {
  QuotelineWorld world;
  world.Import("w.csv", kTwoIssues);
  world.Tamper("UPDATE histories SET prices = zeroblob(12) WHERE issue = 1");
  const std::string text = "Date,Close\n2000-01-04,9\n";
  EXPECT_EQ(world.Import("A.csv", text).faults,
            Lines{"A: its history is damaged; remove it, or import it anew with --replace"});
  EXPECT_TRUE(world.Import("A.csv", text, test::Replacing()).faults.empty());
  EXPECT_EQ(CheckService(world.folder.Path()).faults, Lines{});
  EXPECT_EQ(world.Prices("B"), "1,2000-01-04,7\n2,2000-01-05,8\n");
}

TEST(FamilyFile, IsAHeaderOf116BytesAnd19BytesASymbol) {
  QuotelineWorld world;
  world.Import("w.csv", "Date,A,$NADV\n2000-01-03,10,5\n");
  const auto written = WriteFamily(
      world.folder.Path(),
      "ql4win\\sqldef",
      {.header = {.name = "two", .title = "Zwei f\xC3\xBCr alle"}, .symbols = {"$nadv", "A", "A"}});
  ASSERT_TRUE(written) << PlainText(written.Error());
  EXPECT_EQ(written.Value(), world.folder.Path("QL4WIN/SQLDEF/TWO.FAM"));
  const std::string bytes = world.folder.Read("QL4WIN/SQLDEF/TWO.FAM");
  ASSERT_EQ(bytes.size(), 116U + 3U * 19U);
  EXPECT_EQ(bytes.substr(0, 23), "TWO     Zwei f\xFCr alle  ");
  EXPECT_EQ(bytes.substr(79, 4), std::string(" \x03\0 ", 4));
  EXPECT_EQ(bytes.substr(116, 24), "$NADV              A    ");
}

TEST(FamilyFile, RefusesWhatTheProgramCouldNotLoad) {
  QuotelineWorld world;
  world.Import("A.csv", "Date,Close\n2000-01-03,10\n");
  const auto refusal = [&](const std::string& folder,
                           const std::string& name,
                           const std::string& title = "",
                           std::vector<std::string> symbols = {"A"}) {
    const auto written =
        WriteFamily(world.folder.Path(),
                    folder,
                    {.header = {.name = name, .title = title}, .symbols = std::move(symbols)});
    return written ? std::string() : PlainText(written.Error());
  };
  EXPECT_EQ(refusal("MYDEF", "F"), "MYDEF: is no family folder (QLDEF, QL4WIN/SQLDEF or USERDEF)");
  EXPECT_EQ(refusal("QLDEF", "NINECHARS"),
            "\"NINECHARS\": a family's name has 1 to 8 letters, digits or - _ $ ^ ~ ! # % & @");
  EXPECT_NE(refusal("QLDEF", "../X"), "");
  EXPECT_EQ(refusal("QLDEF", "F", std::string(73, 't')),
            "F: the title has 73 characters; a family holds 72");
  EXPECT_EQ(refusal("QLDEF", "F", "", {"X", "A", "TOOLONG"}),
            "X, TOOLONG: no such issue; the family was not written");
  EXPECT_EQ(world.folder.Read("QLDEF/F.FAM"), "");
}

Lines NamesIn(const std::string& folder) {
  Lines names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Runs the same in some processes at once; how many of them succeed.
template <class Work>
int InProcesses(int count, Work work) {
  int gate[2];
  if (::pipe(gate) != 0) return -1;
  for (int i = 0; i < count; ++i) {
    if (::fork() != 0) continue;
    char byte = 0;
    ::close(gate[1]);
    static_cast<void>(!::read(gate[0], &byte, 1));  // until all are there
    ::_exit(work() ? 0 : 1);
  }
  ::close(gate[0]);
  ::close(gate[1]);
  int succeeded = 0;
  for (int i = 0; i < count; ++i) {
    int status = 0;
    ::wait(&status);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) ++succeeded;
  }
  return succeeded;
}

TEST(StoreCreation, ManyThatMakeTheSameDirectoryAtOnceAllSucceed) {
  for (int round = 0; round < 15; ++round) {
    const test::TemporaryFolder folder;
    const std::string directory = folder.Path("a/service");
    ASSERT_EQ(InProcesses(3, [&] { return bool(InitService(directory)); }), 3) << round;
    ASSERT_EQ(CheckService(directory).faults, Lines{});
    ASSERT_EQ(NamesIn(directory), (Lines{"QL4WIN", "QLDEF", "SIG", "USERDEF", "quoteline.db"}));
  }
}

TEST(StoreCreation, OfTwoSamplesAtOnceOneFillsTheDirectory) {
  for (int round = 0; round < 4; ++round) {
    const test::TemporaryFolder folder;
    const std::string directory = folder.Path("service");
    ASSERT_EQ(InProcesses(2, [&] { return bool(FillWithSample(directory)); }), 1) << round;
    const CheckReport report = CheckService(directory);
    ASSERT_EQ(report.faults, Lines{});
    ASSERT_EQ(report.issues, 68U);
  }
}

TEST(StoreCreation, NeverTakesTheNameOfAnotherFile) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db", "mine");
  EXPECT_FALSE(CreateStore(folder.Path()));
  EXPECT_FALSE(InitService(folder.Path()));
  EXPECT_EQ(folder.Read("quoteline.db"), "mine");
  EXPECT_EQ(NamesIn(folder.Path()), Lines{"quoteline.db"});
}

TEST(StoreCreation, LeavesTheLogOfADatabaseThatIsGone) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db-wal", "the last changes");
  const auto made = InitService(folder.Path());
  ASSERT_FALSE(made);
  EXPECT_NE(PlainText(made.Error()).find("quoteline.db-wal: is the log"), std::string::npos);
  EXPECT_EQ(NamesIn(folder.Path()), Lines{"quoteline.db-wal"});
}

TEST(StoreCreation, RemovesDraftsOfMakersThatDied) {
  const test::TemporaryFolder folder;
  folder.Write("quoteline.db.123-456.new", "half");
  folder.Write("quoteline.db.123-456.new-journal", "half");
  folder.Write("quoteline.db.bak", "mine");
  ASSERT_TRUE(CreateStore(folder.Path()));
  EXPECT_EQ(NamesIn(folder.Path()), (Lines{"quoteline.db", "quoteline.db.bak"}));
}

TEST(StoreCreation, ItsOwnerMayReadAndWriteItWhateverTheMask) {
  const test::TemporaryFolder folder;
  const mode_t before = ::umask(0277);
  const bool made = CreateStore(folder.Path()).Ok();
  ::umask(before);
  struct stat info {};
  ASSERT_EQ(::stat(folder.Path("quoteline.db").c_str(), &info), 0);
  EXPECT_TRUE(made);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

}  // namespace
}  // namespace vistaplot
