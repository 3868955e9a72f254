#include "app/options.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "base/text.h"

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

}  // namespace
}  // namespace vistaplot
