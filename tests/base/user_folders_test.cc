#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/host_path.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

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
