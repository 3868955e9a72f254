#include "app/options.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace vistaplot {
namespace {

using Variables = std::map<std::string, std::string>;

ParsedOptions Parse(const std::vector<const char*>& arguments, const Variables& variables = {}) {
  return ParseOptions(arguments, [&variables](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.c_str();
  });
}

TEST(Options, AbsentOnesComeFromTheEnvironment) {
  struct Case {
    Variables variables;
    std::string quoteline;
    std::string settings;
  };
  const std::vector<Case> cases = {
      {{{"HOME", "/home/u"}},
       "/home/u/.local/share/quoteline",
       "/home/u/.config/vistaplot/settings.ini"},
      {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", "/data"}, {"XDG_CONFIG_HOME", "/conf"}},
       "/data/quoteline",
       "/conf/vistaplot/settings.ini"},
      {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", "/data"}, {"QUOTELINE_DIR", "/ql"}},
       "/ql",
       "/home/u/.config/vistaplot/settings.ini"},
      {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", ""}, {"XDG_CONFIG_HOME", ""}, {"QUOTELINE_DIR", ""}},
       "/home/u/.local/share/quoteline",
       "/home/u/.config/vistaplot/settings.ini"},
      {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", "data"}, {"XDG_CONFIG_HOME", "conf"}},
       "/home/u/.local/share/quoteline",
       "/home/u/.config/vistaplot/settings.ini"},
  };
  for (const Case& each : cases) {
    const ParsedOptions parsed = Parse({}, each.variables);
    EXPECT_EQ(parsed.options.quoteline_dir, each.quoteline);
    EXPECT_EQ(parsed.options.settings_file, each.settings);
  }
}

TEST(Options, ValuesFollowOrStandBehindAnEqualsSign) {
  const ParsedOptions parsed = Parse({"--quoteline=/a=b",
                                      "--settings",
                                      "s.ini",
                                      "--display=640x480",
                                      "--display",
                                      "1920X1080",
                                      "--batch",
                                      "-"},
                                     {{"QUOTELINE_DIR", "/other"}});
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
      {{"--display", "640"}, "--display: \"640\" is no size in pixels such as 1280x960"},
      {{"--display", "0x480"}, "--display: \"0x480\" is no size in pixels such as 1280x960"},
      {{"--display", "640x-480"}, "--display: \"640x-480\" is no size in pixels such as 1280x960"},
      {{"--display", "640x99999999999999999999"},
       "--display: \"640x99999999999999999999\" is no size in pixels such as 1280x960"},
  };
  for (const auto& [arguments, error] : cases) EXPECT_EQ(Parse(arguments).error, error);
}

TEST(Options, HelpAndVersionAreTexts) {
  EXPECT_EQ(Parse({"--version"}).text, "Vistaplot 3.4.1\n");
  const std::string help = Parse({"--batch", "x", "--help"}).text;
  for (const char* part : {"--quoteline DIR",
                           "--settings FILE",
                           "--display WxH",
                           "--batch SCRIPT",
                           "--script FILE",
                           "1 a script error"}) {
    EXPECT_NE(help.find(part), std::string::npos) << part << help;
  }
}

}  // namespace
}  // namespace vistaplot
