#include "marketdata/issue_lists.h"

#include <gtest/gtest.h>

#include "formats/family_file.h"
#include "support/fake_quoteline.h"
#include "support/recording_dialogs.h"
#include "support/silent_progress.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {
namespace {

std::string FamilyBytes(const std::string& title) {
  return FamilyFileBytes({"X", title, 0, ""}, {}).Value();
}

TEST(ListFamilies, OneEntryAFileFolderAfterFolder) {
  const TemporaryFolder ql;
  ql.Write("QLDEF/dow15.fam", FamilyBytes("Stocks of the Dow"));
  ql.Write("QLDEF/Bonds.FAM", FamilyBytes("Bonds"));
  ql.Write("QLDEF/readme.txt", "no family");
  ql.MakeFolder("QL4WIN/SQLDEF");
  ql.Write("USERDEF/LONGERTHAN8.FAM", "LONGER");  // cut within its name
  RecordingDialogs dialogs;
  SilentProgress progress;
  const auto entries = ListFamilies(ql.Path(), {ql.Path(), {}, {}}, dialogs, progress);
  ASSERT_TRUE(entries.has_value());
  EXPECT_EQ(*entries,
            (std::vector<std::string>{"BONDS    Bonds" + std::string(67, ' '),
                                      "DOW15    Stocks of the Dow" + std::string(55, ' '),
                                      "LONGERTH " + std::string(72, ' ')}));
  EXPECT_EQ(FamilyNameOfEntry(entries->at(1)), "DOW15");
  EXPECT_EQ(progress.actions,
            (std::vector<std::string>{"Loading Quoteline Families...",
                                      "Loading Quoteline Stock Families...",
                                      "Loading User Defined Families..."}));
  EXPECT_EQ(progress.percents, (std::vector<double>{0, 0, 100, 0, 0, 100}));
  EXPECT_FALSE(progress.action_shown || progress.meter_shown);
}

TEST(ListFamilies, AFolderThatIsMissingEndsTheProgram) {
  const TemporaryFolder ql;
  ql.MakeFolder("QLDEF");
  RecordingDialogs dialogs;
  SilentProgress progress;
  EXPECT_FALSE(ListFamilies(ql.Path(), {ql.Path(), {}, {}}, dialogs, progress).has_value());
  EXPECT_EQ(dialogs.Texts(),
            std::vector<std::string>{
                "Please check that you have the following family folder: \\ql\\ql4win\\sqldef"});
  EXPECT_TRUE(dialogs.ended_fatally);
  EXPECT_FALSE(progress.action_shown);
}

TEST(ListAllIssues, SymbolInSixCharactersThenTheName) {
  FakeQuoteline api;
  api.AddIssue("SP500", {});
  api.AddIssue("C", {});
  api.issues["C"].name = "Soci\xE9t\xE9 " + std::string(40, 'x');
  MarketData market;
  SilentProgress progress;
  EXPECT_EQ(
      ListAllIssues(api, market, progress),
      (std::vector<std::string>{"C     Société " + std::string(32, 'x'), "SP500 Name of SP500"}));
  EXPECT_EQ(api.open_iterators, 0);
  EXPECT_EQ(SymbolOfEntry("C     Société"), "C");
}

TEST(FindInList, TypingMovesToTheFirstFit) {
  const std::vector<std::string> entries{"~BEAR", "APPLE", "Bell", "BELT", "Delta", "GAMMA"};
  struct Case {
    const char* key;
    int current;
    int found;  // -1: the selection stays
  };
  for (const Case& c :
       {Case{"", 3, 0},
        Case{"be", 1, 2},      // downwards: first whose beginning is the key
        Case{" belt ", 2, 3},  // trimmed
        Case{"C", 1, 3},       // none: the one before the first above
        Case{"B", 5, 3},       // upwards: the first met from below
        Case{"C", 5, 4},       // none: the one after the first below
        Case{"A", 5, 1},
        Case{"AB", 3, -1},  // "~BEAR" is ordered as "ABEAR": not equal, not below
        Case{"AC", 3, 1},   // it is below this one
        Case{"be", 0, 2},   // "~" itself sorts above letters: upwards, then the whole list
        Case{"Z", 1, -1},   // nothing lies above
        Case{"D", -1, 4}}) {
    EXPECT_EQ(FindTyped(entries, c.current, c.key).value_or(-1), c.found)
        << c.key << " from " << c.current;
  }
  EXPECT_EQ(FindInList(entries, 0, "A", 1).value_or(-1), 1);
  EXPECT_EQ(FindInList({}, -1, "", 1).value_or(-1), -1);
  const std::vector<std::string> unsorted{"MIKE", "ZULU", "KILO", "ALPHA"};
  EXPECT_EQ(FindInList(unsorted, 0, "k", 1).value_or(-1), 2);  // "MIKE" stops the scan at once
  EXPECT_EQ(FindInList(unsorted, 3, "m", 0).value_or(-1), 0);
  EXPECT_EQ(FindInList(unsorted, 0, "l", 1).value_or(-1), 0);
}

TEST(ChooseFamilyFile, AsksAgainUntilAFileOrGivingUp) {
  RecordingDialogs dialogs;
  dialogs.open_answers = {{}, {"C:\\QL\\USERDEF\\A.FAM"}};
  dialogs.answers = {Answer::kCancel};
  EXPECT_EQ(ChooseFamilyFile("C:\\QL", dialogs), "C:\\QL\\USERDEF\\A.FAM");
  EXPECT_EQ(dialogs.open_requests[0].initial_folder, "C:\\QL/USERDEF");
  EXPECT_EQ(dialogs.Texts(),
            std::vector<std::string>{
                "No file selected, press OK to continue. Press cancel to select a file"});
  EXPECT_EQ(ChooseFamilyFile("C:\\QL", dialogs), "");
}

TEST(FamilyFiles, AMissingOrShortFileIsAnErrorThatNamesIt) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadFamilyFile(folder.Path("NONE.FAM")).Error().number, 53);
  const auto cut = ReadFamilyFile(folder.Write("CUT.FAM", std::string(115, ' ')));
  EXPECT_EQ(cut.Error().number, 62);
  EXPECT_EQ(cut.Error().subject, folder.Path("CUT.FAM"));
}

TEST(FamilyFiles, AreSoughtInThreeFoldersInOrder) {
  const TemporaryFolder ql;
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
}  // namespace vistaplot::test
