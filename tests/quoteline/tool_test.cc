// The quoteline program as a user runs it: exit statuses, what goes to which stream.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

struct Finished {
  int status = -1;
  std::string out;
  std::string errors;
};

bool IsOneLine(const std::string& message) {
  return message.starts_with("quoteline: ") && message.size() < 1100 &&
         message.find_first_of("\n\x1B") == message.size() - 1;
}

class Tool : public testing::Test {
 protected:
  // Runs the program on the service directory; "FILES/" in the arguments is the test's folder.
  Finished Call(std::string arguments) {
    for (std::size_t at = 0; (at = arguments.find("FILES/", at)) != std::string::npos;) {
      arguments.replace(at, 6, files_.Path() + "/");
    }
    const std::string command = std::string(QUOTELINE_PROGRAM) + " --dir " +
                                files_.Path(directory_) + " " + arguments + " >" +
                                files_.Path("out") + " 2>" + files_.Path("errors");
    const int result = std::system(command.c_str());
    return {WEXITSTATUS(result), Plain("out"), Plain("errors")};
  }

  // A file's text, the folder cut out.
  std::string Plain(const std::string& name) const {
    std::string text = files_.Read(name);
    for (std::size_t at = 0; (at = text.find(files_.Path() + "/")) != std::string::npos;) {
      text.erase(at, files_.Path().size() + 1);
    }
    return text;
  }

  test::TemporaryFolder files_;
  std::string directory_ = "service";
};

TEST_F(Tool, WrongUsageIsStatus2AndSaysWhatIsWrong) {
  auto calls = Split(
      "|frobnicate|import|prices|prices A B|remove|init now|family QLDEF NAME|"
      "list --no-such-option|import --symbol A FILES/a.csv FILES/b.csv|"
      "import --symbol A --wide FILES/a.csv|import --adjusted --wide FILES/a.csv|"
      "init check",
      '|');
  calls.push_back("$(head -c 9999 /dev/zero | tr '\\0' x)");
  for (const auto call : calls) {
    const Finished run = Call(std::string(call));
    EXPECT_EQ(run.status, 2) << call;
    EXPECT_EQ(run.out, "") << call;
    EXPECT_TRUE(IsOneLine(run.errors)) << call << "\n" << run.errors;
  }
  EXPECT_EQ(Call("--help").status, 0);
  EXPECT_EQ(Call("import --help").status, 0);
}

TEST_F(Tool, FaultsAreStatus1) {
  EXPECT_EQ(
      Call("list").errors,
      "quoteline: service/quoteline.db: there is no database; \"quoteline init\" makes one\n");
  ASSERT_EQ(Call("init").status, 0);
  EXPECT_EQ(Call("init").status, 0);  // changes nothing
  files_.Write("BAD.csv", "Date,Close\n2000-01-03,none\n");
  const std::pair<const char*, const char*> cases[] = {
      {"import FILES/BAD.csv",
       "BAD.csv:2: \"none\" is no price; leave out what has none\n"
       "quoteline: nothing was stored\n"},
      {"import FILES/missing.csv", "missing.csv: File not found\nquoteline: nothing was stored\n"},
      {"prices A", "quoteline: A: no such issue\n"},
      {"remove A", "quoteline: A: no such issue in the database; nothing was removed\n"},
      {"family USERDEF F Title A", "quoteline: A: no such issue; the family was not written\n"},
  };
  for (const auto& [call, errors] : cases) {
    const Finished run = Call(call);
    EXPECT_EQ(run.status, 1) << call;
    EXPECT_EQ(run.errors, errors);
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(Tool, ALifeOfAServiceDirectory) {
  ASSERT_EQ(Call("init").status, 0);
  files_.Write("w.csv", "Date,A,B\n2000-01-03,1.5,\n2000-01-04,,2\n");
  const std::string summary =
      "A: 1 new, 0 changed, 2000-01-03 to 2000-01-03\n"
      "B: 1 new, 0 changed, 2000-01-04 to 2000-01-04\n";
  const Finished dry = Call("import --dry-run FILES/w.csv");
  EXPECT_EQ(dry.out, summary + "a dry run: nothing was stored\n");
  EXPECT_EQ(dry.errors, "");
  EXPECT_EQ(Call("list").out, "");
  EXPECT_EQ(Call("import FILES/w.csv").out, summary);
  EXPECT_EQ(Call("import --symbol 'C' --name 'Third one' FILES/w.csv").status, 1);
  files_.Write("long-name.csv", "Date,NAV\n2000-01-03,9\n");
  EXPECT_EQ(Call("import --symbol c --name 'Third one' FILES/long-name.csv").status, 0);
  EXPECT_EQ(Call("list '?'").out,
            "A      2000-01-03  2000-01-03      1  A\n"
            "B      2000-01-04  2000-01-04      1  B\n"
            "C      2000-01-03  2000-01-03      1  Third one\n");
  EXPECT_EQ(Call("prices a").out, "Day,Date,Price\n1,2000-01-03,1.5\n2,2000-01-04,1.5\n");
  EXPECT_EQ(Call("family USERDEF mine 'My two' A B").out, "service/USERDEF/MINE.FAM: 2 symbols\n");
  EXPECT_EQ(Call("check").out, "no fault in 3 issues, 2 market days, 0 FNU series, 1 family\n");
  EXPECT_EQ(Call("remove B b").out, "removed 1 issue\n");
  const Finished check = Call("check");
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.out,
            "USERDEF/MINE.FAM: no such issue: \"B\"\n"
            "1 fault in 2 issues, 1 market day, 0 FNU series, 1 family\n");
  EXPECT_EQ(Call("rebuild").out, "symbol index of 2 issues rebuilt\n");
  EXPECT_EQ(Call("demo").status, 1);
  // The name changes in the row and in the index: no twin tells what it was.
  std::string bytes = files_.Read("service/quoteline.db");
  for (std::size_t at = 0; (at = bytes.find("Third one", at)) != std::string::npos;)
    bytes[at] = 'W';
  files_.Write("service/quoteline.db", bytes);
  const Finished rebuild = Call("rebuild");
  EXPECT_EQ(rebuild.status, 1);
  EXPECT_EQ(rebuild.out, "symbol index of 1 issue rebuilt\n");
  EXPECT_TRUE(rebuild.errors.starts_with("issues: row 3, which reads \"C\", is damaged"))
      << rebuild.errors;
}

TEST_F(Tool, TheSummaryLineNamesTheColumnsLeftOut) {
  ASSERT_EQ(Call("init").status, 0);
  files_.Write("A.csv", "Date,HD,LOW,NAV\n2000-01-03,1,2,3\n");
  EXPECT_EQ(Call("import FILES/A.csv").out,
            "A: 1 new, 0 changed, 2000-01-03 to 2000-01-03; left out: HD, LOW\n");
  EXPECT_EQ(Call("import --wide FILES/A.csv").out,
            "HD: 1 new, 0 changed, 2000-01-03 to 2000-01-03\n"
            "LOW: 1 new, 0 changed, 2000-01-03 to 2000-01-03\n"
            "NAV: 1 new, 0 changed, 2000-01-03 to 2000-01-03\n");
}

TEST_F(Tool, FoldersAndFamiliesAreFoundInAnyCase) {
  for (const char* folder : {"qldef", "Ql4Win/sqldef", "userdef", "sig"}) {
    files_.MakeFolder(std::string("service/") + folder);
  }
  ASSERT_EQ(Call("init").status, 0);
  files_.Write("A.csv", "Date,NAV\n2000-01-03,1\n");
  ASSERT_EQ(Call("import FILES/A.csv").status, 0);
  files_.Write("service/userdef/mine.fam", "old");
  EXPECT_EQ(Call("family USERDEF Mine T A").out, "service/userdef/mine.fam: 1 symbol\n");
  EXPECT_EQ(ListFolders(files_.Path("service")).Value(),
            (std::vector<std::string>{"Ql4Win", "qldef", "sig", "userdef"}));
  EXPECT_EQ(ListFiles(files_.Path("service/userdef"), "*").Value().size(), 1U);
  EXPECT_EQ(Call("check").out, "no fault in 1 issue, 1 market day, 0 FNU series, 1 family\n");
  const Finished second = Call("family QLDEF mine T A");
  EXPECT_EQ(second.status, 0);
  EXPECT_EQ(second.errors,
            "note: USERDEF/MINE.FAM: never loaded, as QLDEF/MINE.FAM has the same name\n");
  EXPECT_EQ(Call("check").out,
            "note: USERDEF/mine.fam: never loaded, as QLDEF/MINE.FAM has the same name\n"
            "no fault in 1 issue, 1 market day, 0 FNU series, 2 families\n");
}

TEST_F(Tool, TheWayThroughALinkIsTheSystems) {
  files_.MakeFolder("real/deep");
  std::filesystem::create_directory_symlink("real/deep", files_.Path("link"));
  directory_ = "link/../ql";
  ASSERT_EQ(Call("init").status, 0);
  EXPECT_TRUE(FolderExists(files_.Path("real/ql/USERDEF")));
  EXPECT_EQ(Call("list").errors, "");
}

}  // namespace
}  // namespace vistaplot
