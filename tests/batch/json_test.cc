#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "batch/json_reader.h"
#include "batch/json_writer.h"

namespace vistaplot {
namespace {

TEST(Json, WritesOneLineThatReadsBackExactly) {
  JsonWriter json;
  json.BeginObject().Key("a").Number(0.1F).Key("b").BeginArray().Number(0.1).Null();
  json.Number(std::numeric_limits<double>::quiet_NaN()).Bool(true).BeginObject().EndObject();
  const std::string line = json.EndArray().Key("t\"").Text("x\r\n\xE4").EndObject().Take();
  EXPECT_EQ(line,
            "{\"a\": 0.1, \"b\": [0.1, null, null, true, {}], \"t\\\"\": \"x\\r\\n\xC3\xA4\"}");
  const ParsedJson parsed = ParseJson(line);
  ASSERT_TRUE(parsed.Ok()) << parsed.error;
  EXPECT_EQ(parsed.value.Find("b")->items[0].number, 0.1);
  EXPECT_EQ(parsed.value.Find("t\"")->text, "x\r\n\xC3\xA4");
}

TEST(Json, EscapesAreRead) {
  const ParsedJson parsed = ParseJson(R"( ["\u00e4\ud83d\ude00\t\/", -1.5e3] )");
  ASSERT_TRUE(parsed.Ok()) << parsed.error;
  EXPECT_EQ(parsed.value.items[0].text, "\xC3\xA4\xF0\x9F\x98\x80\t/");
  EXPECT_EQ(parsed.value.items[1].number, -1500.0);
}

TEST(Json, FaultsAreNamedWithTheirPlace) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "line 1, column 1: a value is expected"},
      {"{\"a\": 1,\n \"b\" 2}", "line 2, column 6: a colon is expected"},
      {"[1, 2", "line 1, column 6: a comma or a closing bracket is expected"},
      {"[\"open]", "line 1, column 3: a text is not closed"},
      {"[\"\\u12\"]", "line 1, column 7: four hexadecimal digits are expected"},
      {"[1] 2", "line 1, column 5: more text behind the value"},
      {"NaN", "line 1, column 1: a value is expected"},
      {std::string(100, '['), "line 1, column 66: nested too deeply"},
  };
  for (const auto& [text, error] : cases) EXPECT_EQ(ParseJson(text).error, error) << text;
}

}  // namespace
}  // namespace vistaplot
