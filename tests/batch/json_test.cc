#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "batch/comparison.h"
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
  const auto parsed = nlohmann::json::parse(line);
  EXPECT_EQ(parsed["b"][0].get<double>(), 0.1);
  EXPECT_EQ(parsed["t\""], "x\r\n\xC3\xA4");
}

TEST(Json, DifferencesAreNamedByTheirPath) {
  const auto compared = CompareJson(R"({"a": [1, 2.0, "x"], "b": null, "c": {"d": true}})",
                                    R"({"c": {"d": 1}, "a": [1.0, 2.1, "y\n"], "e": []})",
                                    0.01);
  ASSERT_TRUE(compared.Ok());
  EXPECT_EQ(compared.Value().told,
            (std::vector<std::string>{"a[2]: 2 expected, 2.1 found",
                                      "a[3]: \"x\" expected, \"y\n\" found",
                                      "b: null expected, nothing found",
                                      "c.d: true expected, 1 found",
                                      "e: nothing expected, a list of 0 found"}));
  EXPECT_EQ(CompareJson("[1, 2.1]", "[1.0, 2.1000001]", 1e-6).Value().count, 0);
}

TEST(Json, WhatIsNoDumpIsNamedWithItsPlaceOnOneShortLine) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "line 1, column 1: "},
      {"{\"a\": 1,\n \"b\" 2}", "line 2, column 6: "},
      {"[1, 2", "line 1, column 6: "},
      {std::string(1'000'000, '['), "line 1, column 1000001: "},
      {"\"" + std::string(1'000'000, 'x') + "\n", "line 2, column 0: "},
  };
  for (const auto& [text, error] : cases) {
    const auto compared = CompareJson(text, "1", 0.0);
    ASSERT_FALSE(compared.Ok());
    EXPECT_TRUE(compared.Error().description.starts_with(error)) << compared.Error().description;
    EXPECT_LT(compared.Error().description.size(), 200U);
  }
}

}  // namespace
}  // namespace vistaplot
