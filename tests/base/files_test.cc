#include "base/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <future>
#include <string>
#include <utility>
#include <vector>

#include "base/file_lock.h"
#include "base/output_file.h"
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

TEST(WriteFileAtomically, AFullDiskLeavesTheOldFileWhole) {
  const test::TemporaryFolder folder;
  folder.Write("a.fam", "old");
  test::InChildWithFileLimit(1000, [&folder] {
    const auto written = WriteFileAtomically(folder.Path("a.fam"), std::string(5000, 'x'));
    return ErrorText(written) == "61 Disk full";
  });
  EXPECT_EQ(folder.Read("a.fam"), "old");
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value(), Names{"a.fam"});
}

TEST(WriteFileAtomically, WritesIntoWhatIsNoFile) {
  const test::TemporaryFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("pipe", folder.Path("link"));
  const Descriptor reader(::open(pipe.c_str(), O_RDONLY | O_NONBLOCK));
  ASSERT_TRUE(WriteFileAtomically(folder.Path("link"), "through").Ok());
  EXPECT_TRUE(fs::is_fifo(pipe));
  std::array<char, 16> got{};
  EXPECT_EQ(::read(reader.Number(), got.data(), got.size()), 7);
  EXPECT_STREQ(got.data(), "through");
  const std::string null = folder.NullDevice();
  if (null.empty()) return;
  EXPECT_TRUE(WriteFileAtomically(null, "gone").Ok());
  EXPECT_TRUE(fs::is_character_file(null));
}

TEST(WriteFileAtomically, GoesOnBehindWhatAnOpenFileHolds) {
  const test::TemporaryFolder folder;
  const Descriptor file(::open(folder.Path("log").c_str(), O_WRONLY | O_CREAT, 0600));
  ASSERT_EQ(::write(file.Number(), "one ", 4), 4);
  fs::create_symlink("/dev/fd/" + std::to_string(file.Number()), folder.Path("link"));
  ASSERT_TRUE(WriteFileAtomically(folder.Path("link"), "two").Ok());
  EXPECT_EQ(folder.Read("log"), "one two");
}

TEST(WriteFileAtomically, RemovesDraftsOfKilledWritersAlone) {
  const test::TemporaryFolder folder;
  for (const char* name : {"a.fam.4711.new", "a.fam.12-1.new", "b.fam.4711.new", "a.fam.old.new"}) {
    folder.Write(name, "draft");
  }
  const Descriptor live(::open(folder.Path("a.fam.12-1.new").c_str(), O_RDONLY));
  ASSERT_EQ(::flock(live.Number(), LOCK_EX), 0);
  ASSERT_TRUE(WriteFileAtomically(folder.Path("a.fam"), "x").Ok());
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value(),
            (Names{"a.fam", "a.fam.12-1.new", "a.fam.old.new", "b.fam.4711.new"}));
}

TEST(WriteFileAtomically, WritersOfOneFileDoNotTakeEachOthersDrafts) {
  const test::TemporaryFolder folder;
  const auto write = [&folder](char letter) {
    for (int i = 0; i < 100; ++i) {
      if (!WriteFileAtomically(folder.Path("a"), std::string(1000, letter))) return false;
    }
    return true;
  };
  auto other = std::async(std::launch::async, write, 'b');
  EXPECT_TRUE(write('a'));
  EXPECT_TRUE(other.get());
  const std::string content = folder.Read("a");
  EXPECT_EQ(content, std::string(1000, content[0]));
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value(), Names{"a"});
}

TEST(ReadWholeFile, ADeviceWithoutEndIsTooLarge) {
  const auto content = ReadWholeFile("/dev/zero", std::size_t{3} << 20U);
  ASSERT_FALSE(content.Ok());
  EXPECT_EQ(PlainText(content.Error()), "/dev/zero: larger than 3 MiB");
  EXPECT_EQ(ReadWholeFile("/dev/null").Value(), "");
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
  for (const auto& [name, pattern] :
       std::vector<std::pair<const char*, const char*>>{{"growth.fam", "G*.FAM"},
                                                        {"a.b.fam", "*.fam"},
                                                        {"abcabd", "*ab?"},
                                                        {"\xC3\xBC.sig", "?.sig"},
                                                        {"", "*"}}) {
    EXPECT_TRUE(MatchesPattern(name, pattern)) << name << " " << pattern;
  }
  EXPECT_FALSE(MatchesPattern("growth.fam.bak", "*.fam"));
  EXPECT_FALSE(MatchesPattern("ab", "ab?"));
  EXPECT_FALSE(MatchesPattern("a", ""));
  EXPECT_FALSE(MatchesPattern("aaaaaaaaaaaaaaaaaaaaaaaaaaaaab", "*a*a*a*a*a*a*c"));
}

TEST(OutputFile, TheOldFileIsWholeUntilTheNewOneIsDone) {
  const test::TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "old");
  {
    OutputFile file = std::move(OutputFile::Create(path).Value());
    file.Bytes() = std::string(std::size_t{3} << 20U, 'x');
    ASSERT_TRUE(file.Spill());
    EXPECT_EQ(file.Bytes(), "") << "much is written out";
    EXPECT_EQ(folder.Read("a.txt"), "old");
  }
  EXPECT_EQ(folder.Read("a.txt"), "old") << "given up";
  OutputFile file = std::move(OutputFile::Create(path).Value());
  file.Bytes() = "new";
  ASSERT_TRUE(file.Spill() && file.Finish());
  EXPECT_EQ(folder.Read("a.txt"), "new");
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value().size(), 1U) << "nothing is left behind";
  EXPECT_EQ(OutputFile::Create("").Error().number, kErrorFileNotFound);
  EXPECT_EQ(OutputFile::Create(folder.Path("no/a")).Error().number, kErrorPathNotFound);
  EXPECT_EQ(OutputFile::Create(folder.Path()).Error().number, kErrorPathFileAccess);
}

}  // namespace
}  // namespace vistaplot
