#include "base/host_path.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

namespace fs = std::filesystem;

// A service's directory, drives c and D, and a link e:.
class HostPathTest : public testing::Test {
 protected:
  HostPathTest() {
    folder_.MakeFolder("wine");
    for (const char* file : {"ql/Sig/a.sig",
                             "ql/Sig/A.sig",
                             "drives/c/Data/x.sum",
                             "drives/D/back\\slash",
                             "floppy/y.sum"}) {
      folder_.Write(file, "x");
    }
    fs::create_directory_symlink(folder_.Path("floppy"), folder_.Path("wine/e:"));
    roots_ = {.QuotelineDir = folder_.Path("ql"),
              .drives_dir = folder_.Path("drives"),
              .wine_devices_dir = folder_.Path("wine")};
  }

  test::TemporaryFolder folder_;
  PathRoots roots_;
};

TEST_F(HostPathTest, FindsOldStyleNames) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"C:\\QL", "ql"},
      {"c:/ql/", "ql"},
      {"C:\\QL\\SIG\\a.SIG  ", "ql/Sig/A.sig"},  // "A" stands ahead of "a" in name order
      {"C:\\QL\\sig\\a.sig", "ql/Sig/a.sig"},
      {"c:\\ql\\sig\\New.Sig", "ql/Sig/New.Sig"},
      {"c:\\ql\\None\\New.Sig", "ql/None/New.Sig"},
      {"c:\\qlx\\a", "drives/c/qlx/a"},
      {"C:\\DATA\\X.SUM", "drives/c/Data/x.sum"},
      {"d:\\", "drives/D"},
      {"E:\\Y.SUM", "wine/e:/y.sum"},
      {"f:\\z.sum", "drives/f/z.sum"}};
  for (const auto& [text, path] : cases) {
    EXPECT_EQ(HostPath(text, roots_), folder_.Path(path)) << text;
  }
}

TEST_F(HostPathTest, TakesWhatIsThereAsItStands) {
  const std::string odd = folder_.Path("drives/D/back\\slash");
  EXPECT_EQ(HostPath(odd + "  ", roots_), odd);
  EXPECT_EQ(HostPath(folder_.Path("QL\\SIG\\b.sig"), roots_), folder_.Path("ql/Sig/b.sig"));
  EXPECT_EQ(HostPath("   ", roots_), "");
  EXPECT_EQ(HostPath("not\\there.txt", roots_), "not/there.txt");
}

TEST_F(HostPathTest, LeavesATextOfNoDriveAlone) {
  const std::string path = HostPath("F:\\A.SUM", PathRoots());
  EXPECT_EQ(path, "F:/A.SUM");
  EXPECT_FALSE(fs::exists(path));
}

TEST(RootsFromEnvironment, PrefersTheFolderOfDrivesThatIsNamed) {
  const auto drives_with = [](const char* name, const char* value) {
    ::setenv(name, value, 1);
    return RootsFromEnvironment().drives_dir;
  };
  ::setenv("HOME", "/home/u", 1);
  ::setenv("VISTAPLOT_DRIVES", "", 1);
  EXPECT_EQ(drives_with("XDG_DATA_HOME", ""), "/home/u/.local/share/vistaplot/drives");
  EXPECT_EQ(RootsFromEnvironment().wine_devices_dir, "/home/u/.wine/dosdevices");
  EXPECT_EQ(drives_with("XDG_DATA_HOME", "/data"), "/data/vistaplot/drives");
  EXPECT_EQ(drives_with("XDG_DATA_HOME", "relative"), "/home/u/.local/share/vistaplot/drives");
  EXPECT_EQ(drives_with("VISTAPLOT_DRIVES", "/drives"), "/drives");
}

using Variables = std::map<std::string, std::string>;

TEST(UserFolders, AnUnsetEmptyOrRelativeVariableGivesTheSameAnswer) {
  const Variables cases[] = {
      {{"HOME", "/home/u"}},
      {{"HOME", "/home/u"}, {"XDG_DATA_HOME", ""}, {"XDG_CONFIG_HOME", ""}, {"QUOTELINE_DIR", ""}},
      {{"HOME", "/home/u"}, {"XDG_DATA_HOME", "data"}, {"XDG_CONFIG_HOME", "./conf"}}};
  for (const Variables& variables : cases) {
    const auto lookup = [&variables](const char* name) {
      const auto found = variables.find(name);
      return found == variables.end() ? nullptr : found->second.c_str();
    };
    EXPECT_EQ(DataFolder(lookup), "/home/u/.local/share");
    EXPECT_EQ(ConfigFolder(lookup), "/home/u/.config");
    EXPECT_EQ(DefaultServiceFolder(lookup), "/home/u/.local/share/quoteline");
  }
}

TEST(UserFolders, WithoutAHomeTheAccountsOwnCounts) {
  const std::string account = HomeFolder([](const char*) { return nullptr; });
  EXPECT_TRUE(account.starts_with('/')) << account;
  for (const char* home : {"", "here", "../u"}) {
    EXPECT_EQ(HomeFolder([home](const char*) { return home; }), account) << home;
  }
}

TEST(AbsolutePath, KeepsTheWayThroughLinks) {
  const std::string here = std::filesystem::current_path().string();
  EXPECT_EQ(AbsolutePath("/a/link/../b//./c/"), "/a/link/../b/c");
  EXPECT_EQ(AbsolutePath("./x/.."), here + "/x/..");
  EXPECT_EQ(AbsolutePath("/"), "/");
}

TEST(UserFolders, DocumentsLieWhereTheDesktopSaysElseInTheirUsualFolderElseAtHome) {
  const test::TemporaryFolder home;
  const std::string root = home.Path();
  const auto lookup = [&root](std::string_view name) {
    return name == "HOME" ? root.c_str() : nullptr;
  };
  EXPECT_EQ(DocumentsFolder(lookup), root);
  home.MakeFolder("Documents");
  EXPECT_EQ(DocumentsFolder(lookup), root + "/Documents");
  home.MakeFolder("Texte");
  home.MakeFolder(".config");
  home.Write(".config/user-dirs.dirs",
             "# written by the desktop\nXDG_DOCUMENTS_DIR=\"$HOME/Texte\"\n");
  EXPECT_EQ(DocumentsFolder(lookup), root + "/Texte");
  home.Write(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/gone\"\n");
  EXPECT_EQ(DocumentsFolder(lookup), root + "/Documents");
}

}  // namespace
}  // namespace vistaplot
