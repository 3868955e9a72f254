// The options of the command line, and the settings kept on disk.
#include "app/options.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <map>
#include <string>
#include <vector>

#include "app/ini_settings.h"
#include "base/files.h"
#include "base/text.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using Variables = std::map<std::string, std::string>;
using test::TemporaryFolder;

ParsedOptions Parse(const std::vector<const char*>& arguments, const Variables& variables = {}) {
  return ParseOptions(arguments, [&variables](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.c_str();
  });
}

TEST(Options, AbsentOnesComeFromTheEnvironment) {
  const auto folders = [](const Variables& variables) {
    const Options options = Parse({}, variables).options;
    return options.quoteline_dir + " " + options.settings_file;
  };
  EXPECT_EQ(folders({{"HOME", "/home/u"}, {"XDG_DATA_HOME", ""}, {"XDG_CONFIG_HOME", "conf"}}),
            "/home/u/.local/share/quoteline /home/u/.config/vistaplot/settings.ini");
  EXPECT_EQ(folders({{"HOME", "/u"}, {"XDG_DATA_HOME", "/data"}, {"XDG_CONFIG_HOME", "/conf"}}),
            "/data/quoteline /conf/vistaplot/settings.ini");
  EXPECT_EQ(folders({{"HOME", "/u"}, {"XDG_DATA_HOME", "/data"}, {"QUOTELINE_DIR", "/ql"}}),
            "/ql /u/.config/vistaplot/settings.ini");
}

TEST(Options, ValuesFollowOrStandBehindAnEqualsSign) {
  std::vector<const char*> words{"--quoteline=/a=b", "--settings", "s.ini", "--display=640x480"};
  words.insert(words.end(), {"--display", "1920X1080", "--batch", "-"});
  const ParsedOptions parsed = Parse(words, {{"QUOTELINE_DIR", "/other"}});
  ASSERT_TRUE(parsed.Ok()) << parsed.error;
  EXPECT_EQ(parsed.options.quoteline_dir, "/a=b");
  EXPECT_EQ(parsed.options.settings_file, "s.ini");
  EXPECT_EQ(parsed.options.display, (PixelSize{1920, 1080}));
  EXPECT_EQ(parsed.options.batch_script, "-");
}

TEST(Options, DisplayIsTheRealOneExceptForABatch) {
  EXPECT_FALSE(Parse({}).options.display);
  EXPECT_EQ(Parse({"--batch", "a.txt"}).options.display, (PixelSize{1280, 960}));
  EXPECT_EQ(DisplayInTwips({640, 480}).width, 9600.0F);
  EXPECT_EQ(DisplayInTwips({640, 480}).height, 7200.0F);
}

TEST(Options, WrongUseIsNamed) {
  const std::vector<std::pair<std::vector<const char*>, std::string>> cases = {
      {{"--bacth", "x"}, "The following arguments were not expected: x --bacth"},
      {{"script.txt"}, "The following argument was not expected: script.txt"},
      {{"--batch"}, "--batch: 1 required SCRIPT missing"},
      {{"--settings", ""}, "--settings: a value is needed"},
      {{"--quoteline", "--batch", "x"}, "--quoteline: a value is needed"},
      {{"--batch", "a", "--script", "b"}, "--batch excludes --script"},
  };
  for (const auto& [arguments, error] : cases) EXPECT_EQ(Parse(arguments).error, error);
  for (const std::string size : {"640", "0x480", "640x-480", "640x99999999999999999999"}) {
    EXPECT_EQ(Parse({"--display", size.c_str()}).error,
              "--display: \"" + size + "\" is no size in pixels such as 1280x960");
  }
}

TEST(Options, HelpAndVersionAreTexts) {
  EXPECT_EQ(Parse({"--version"}).text, "Vistaplot 3.4.1\n");
  const std::string help = Parse({"--batch", "x", "--help"}).text;
  for (const auto part : Split("--quoteline DIR|--settings FILE|--display WxH|--batch SCRIPT|"
                               "--script FILE|1 a script error",
                               '|')) {
    EXPECT_NE(help.find(part), std::string::npos) << part << help;
  }
}

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

TEST(IniSettings, ALineBreakDoesNotBreakTheFileAndTwoProgramsKeepEachOthersLines) {
  const TemporaryFolder folder;
  IniSettings one(folder.Path("s.ini"));
  IniSettings two(folder.Path("s.ini"));
  ASSERT_TRUE(one.Save("a", "1\r\n[other]\nb=2"));
  ASSERT_TRUE(two.Save("c", "3"));
  EXPECT_EQ(folder.Read("s.ini"), "[startup]\na=1  [other] b=2\nc=3\n");
  EXPECT_EQ(two.Get("a"), "1  [other] b=2");
}

TEST(IniSettings, WhatOthersWroteStays) {
  const std::string before =
      "; my notes\r\nstray\r\n[window]\r\nqldir=not ours\r\n\r\n[Startup]\r\n# the service\r\n"
      "QLDir = /old\r\nunknown=kept\r\n\r\n[later]\r\nx=y";
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

TEST(IniSettings, WhatBelongsTogetherIsStoredTogetherOrNotAtAll) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("s.ini", "[startup]\na=0\n");
  const std::vector<Setting> both{{"a", "1"}, {"b", std::string(3000, 'x')}};
  test::InChildWithFileLimit(1000, [&] {
    IniSettings settings(path);
    return !settings.SaveAll(both) && settings.Get("a") == "0";
  });
  EXPECT_EQ(folder.Read("s.ini"), "[startup]\na=0\n");
  IniSettings settings(path);
  ASSERT_TRUE(settings.SaveAll(both));
  EXPECT_EQ(folder.Read("s.ini"), "[startup]\na=1\nb=" + std::string(3000, 'x') + "\n");
}

// Each of two programs stores pairs; a third reads. No pair is ever seen half, none is lost.
TEST(IniSettings, TwoProgramsNeverMixTheirs) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("s.ini");
  const auto store = [&path](const std::string& mine) {
    IniSettings settings(path);
    for (int i = 1; i <= 40; ++i) {
      const std::string value = mine + std::to_string(i);
      const std::vector<Setting> pair{{"first", value}, {"second", value}, {value, "kept"}};
      if (!settings.SaveAll(pair)) return false;
    }
    return true;
  };
  auto one = std::async(std::launch::async, store, "x");
  auto two = std::async(std::launch::async, store, "y");
  while (one.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
    const IniSettings seen(path);
    EXPECT_EQ(seen.Get("first"), seen.Get("second"));
  }
  EXPECT_TRUE(one.get());
  EXPECT_TRUE(two.get());
  const IniSettings last(path);
  for (int i = 1; i <= 40; ++i) {
    for (std::string key : {"x", "y"}) EXPECT_EQ(last.Get(key.append(std::to_string(i))), "kept");
  }
  EXPECT_EQ(ListFiles(folder.Path(), "*").Value(), std::vector<std::string>{"s.ini"});
}

TEST(IniSettings, ADeviceHoldsNothingAndStaysADeviceAndAFolderIsAnError) {
  const TemporaryFolder folder;
  const std::string path = folder.MakeFolder("s.ini");
  EXPECT_EQ(IniSettings(path).Save("a", "1").Error().subject, path);
  EXPECT_TRUE(std::filesystem::is_directory(path));
  const std::string null = folder.NullDevice();
  if (null.empty()) return;
  IniSettings settings(null);
  EXPECT_EQ(settings.Get("a", "fallback"), "fallback");
  EXPECT_TRUE(settings.Save("a", "1"));
  EXPECT_TRUE(std::filesystem::is_character_file(null));
}

TEST(IniSettings, AFileFarTooLargeIsLeftAlone) {
  const TemporaryFolder folder;
  std::string text = "[startup]\na=1\n";
  for (int i = 0; i < 200'000; ++i) text += "k=1234\n";
  const std::string path = folder.Write("s.ini", text);
  IniSettings settings(path);
  EXPECT_EQ(settings.Get("a", "fallback"), "fallback");
  const Status saved = settings.Save("a", "2");
  ASSERT_FALSE(saved);
  EXPECT_EQ(PlainText(saved.Error()), path + ": larger than 1 MiB");
  EXPECT_EQ(folder.Read("s.ini"), text);
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

}  // namespace
}  // namespace vistaplot
