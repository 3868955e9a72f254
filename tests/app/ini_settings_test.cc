#include "app/ini_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using test::TemporaryFolder;

TEST(IniSettings, ValuesReadBackLiterally) {
  const std::vector<std::string> values = {"",
                                           R"(C:\new\table)",
                                           R"(a, "b", c)",
                                           R"("quoted")",
                                           R"("")",
                                           "\"",
                                           "  blanks  ",
                                           "x=1;y#2 ; no comment",
                                           "[startup]",
                                           "\ttab",
                                           "Gr\u00FC\u00DFe 100 %"};
  const TemporaryFolder folder;
  const std::string path = folder.Path("deep/er/settings.ini");
  IniSettings settings(path);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string key = "key" + std::to_string(i);
    ASSERT_TRUE(settings.Save(key, "before"));
    ASSERT_TRUE(settings.Save(key, values[i]));
    EXPECT_EQ(settings.Get(key, "fallback"), values[i]);
  }
  const IniSettings again(path);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(again.Get("KEY" + std::to_string(i), "fallback"), values[i]);
  }
  EXPECT_EQ(again.Get("never", "fallback"), "fallback");
}

TEST(IniSettings, ALineBreakDoesNotBreakTheFile) {
  const TemporaryFolder folder;
  IniSettings settings(folder.Path("s.ini"));
  ASSERT_TRUE(settings.Save("a", "1\r\n[other]\nb=2"));
  ASSERT_TRUE(settings.Save("c", "3"));
  const IniSettings again(folder.Path("s.ini"));
  EXPECT_EQ(again.Get("a"), "1  [other] b=2");
  EXPECT_EQ(again.Get("b", "none"), "none");
  EXPECT_EQ(again.Get("c"), "3");
}

TEST(IniSettings, WhatOthersWroteStays) {
  const std::string before =
      "; my notes\r\n"
      "stray\r\n"
      "[window]\r\n"
      "qldir=not ours\r\n"
      "\r\n"
      "[Startup]\r\n"
      "# the service\r\n"
      "QLDir = /old\r\n"
      "unknown=kept\r\n"
      "\r\n"
      "[later]\r\n"
      "x=y";
  const TemporaryFolder folder;
  const std::string path = folder.Write("s.ini", before);
  IniSettings settings(path);
  EXPECT_EQ(settings.Get("qldir"), "/old");

  ASSERT_TRUE(settings.Save("qldir", "/old"));
  EXPECT_EQ(folder.Read("s.ini"), before) << "nothing to write";

  std::string after = before;
  after.replace(after.find("QLDir = /old"), 12, "qldir=/new");
  after.insert(after.find("\r\n[later]"), "gain1=5\r\n");
  ASSERT_TRUE(settings.Save("qldir", "/new"));
  ASSERT_TRUE(settings.Save("gain1", "5"));
  EXPECT_EQ(folder.Read("s.ini"), after);
}

TEST(IniSettings, SaveKeepsWhatAnotherProgramWroteMeanwhile) {
  const TemporaryFolder folder;
  IniSettings one(folder.Path("s.ini"));
  IniSettings two(folder.Path("s.ini"));
  ASSERT_TRUE(one.Save("a", "1"));
  ASSERT_TRUE(two.Save("b", "2"));
  EXPECT_EQ(folder.Read("s.ini"), "[startup]\na=1\nb=2\n");
}

TEST(IniSettings, AFileThatIsNoTextIsKeptBesideTheNewOne) {
  const TemporaryFolder folder;
  const std::string binary(
      "\x7F"
      "ELF\0\1=\n[startup]\na=1\n",
      22);
  const std::string path = folder.Write("s.ini", binary);
  folder.Write("s.ini.damaged", "an earlier one");
  IniSettings settings(path);
  EXPECT_EQ(settings.Get("a", "fallback"), "fallback");
  ASSERT_TRUE(settings.Save("b", "2"));
  EXPECT_EQ(folder.Read("s.ini.damaged"), "an earlier one");
  EXPECT_EQ(folder.Read("s.ini.damaged2"), binary);
  EXPECT_EQ(folder.Read("s.ini"), "[startup]\nb=2\n");
}

TEST(IniSettings, AFolderInItsPlaceIsAnErrorAndStays) {
  const TemporaryFolder folder;
  const std::string path = folder.MakeFolder("s.ini");
  IniSettings settings(path);
  const Status saved = settings.Save("a", "1");
  ASSERT_FALSE(saved);
  EXPECT_EQ(saved.Error().subject, path);
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

}  // namespace
}  // namespace vistaplot
