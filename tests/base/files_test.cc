#include "base/files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

std::string ErrorText(const Status& status) {
  return status.Ok() ? "" : NumberedText(status.Error());
}

TEST(ReadWholeFile, NamesWhatIsWrong) {
  const test::TemporaryFolder folder;
  const std::vector<std::pair<std::string, int>> cases = {
      {folder.Path("none.txt"), kErrorFileNotFound},
      {folder.Path("none/a.txt"), kErrorPathNotFound},
      {folder.Path(), kErrorPathFileAccess}};
  for (const auto& [path, number] : cases) {
    const auto content = ReadWholeFile(path);
    ASSERT_FALSE(content.Ok()) << path;
    EXPECT_EQ(content.Error().number, number) << path;
    EXPECT_EQ(content.Error().subject, path);
  }
}

TEST(WriteFileAtomically, ReplacesTheWholeContentAndKeepsRights) {
  const test::TemporaryFolder folder;
  const std::string path = folder.Path("a.fam");
  const std::string content(300'000, '\0');
  ASSERT_TRUE(WriteFileAtomically(path, "a longer first content").Ok());
  fs::permissions(path, fs::perms(0640));
  ASSERT_TRUE(WriteFileAtomically(path, content).Ok());
  EXPECT_EQ(ReadWholeFile(path).Value(), content);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value(), Names{"a.fam"});
}

TEST(WriteFileAtomically, WritesThroughALink) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(WriteFileAtomically(folder.Path("real.fam"), "old").Ok());
  fs::create_symlink("real.fam", folder.Path("link.fam"));
  ASSERT_TRUE(WriteFileAtomically(folder.Path("link.fam"), "new").Ok());
  EXPECT_TRUE(fs::is_symlink(folder.Path("link.fam")));
  EXPECT_EQ(ReadWholeFile(folder.Path("real.fam")).Value(), "new");
}

TEST(WriteFileAtomically, LeavesNothingBehindWhenItFails) {
  const test::TemporaryFolder folder;
  ASSERT_TRUE(MakeFolders(folder.Path("sub/deep")).Ok());
  EXPECT_EQ(ErrorText(WriteFileAtomically(folder.Path("sub"), "x")), "75 Path/File access error");
  EXPECT_EQ(ErrorText(WriteFileAtomically(folder.Path("no/a"), "x")), "76 Path not found");
  EXPECT_EQ(ErrorText(MakeFolders("/proc/none/a")), "75 Path/File access error");
  EXPECT_TRUE(ListFiles(folder.Path(), "*").Value().empty());
  EXPECT_EQ(ListFolders(folder.Path()).Value(), Names{"sub"});
  // What a full disk reports.
  EXPECT_EQ(NumberedText(ErrorFromErrno(ENOSPC)), "61 Disk full");
  EXPECT_EQ(NumberedText(ErrorFromErrno(EDQUOT)), "61 Disk full");
  EXPECT_EQ(NumberedText(ErrorFromErrno(EACCES)), "70 Permission denied");
}

TEST(ListFiles, TakesRegularFilesInOrderWithCaseIgnored) {
  const test::TemporaryFolder folder;
  for (const char* name : {"b.sig", "A.SIG", "c.txt", "a.sig", "plain"}) folder.Write(name, "x");
  folder.MakeFolder("d.sig");
  folder.MakeFolder(".hidden");
  EXPECT_EQ(ListFiles(folder.Path(), "*.SIG").Value(), (Names{"A.SIG", "a.sig", "b.sig"}));
  EXPECT_EQ(ListFiles(folder.Path(), "*.*").Value(),
            (Names{"A.SIG", "a.sig", "b.sig", "c.txt", "plain"}));
  EXPECT_EQ(ListFolders(folder.Path()).Value(), Names{"d.sig"});
  EXPECT_EQ(ListFiles(folder.Path("none"), "*").Error().number, kErrorPathNotFound);
  EXPECT_EQ(ListFolders(folder.Path("plain")).Error().number, kErrorPathNotFound);
}

TEST(MatchesPattern, ReadsStarsAndQuestionMarks) {
  struct Case {
    const char* name;
    const char* pattern;
    bool matches;
  };
  const std::vector<Case> cases = {{"growth.fam", "G*.FAM", true},
                                   {"growth.fam.bak", "*.fam", false},
                                   {"a.b.fam", "*.fam", true},
                                   {"abcabd", "*ab?", true},
                                   {"ab", "ab?", false},
                                   {"\xC3\xBC.sig", "?.sig", true},
                                   {"", "*", true},
                                   {"a", "", false},
                                   {"aaaaaaaaaaaaaaaaaaaaaaaaaaaaab", "*a*a*a*a*a*a*c", false}};
  for (const Case& c : cases) {
    EXPECT_EQ(MatchesPattern(c.name, c.pattern), c.matches) << c.name << " " << c.pattern;
  }
}

}  // namespace
}  // namespace vistaplot
