#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vistaplot {
namespace {

TEST(Text, ComparesWithCaseIgnored) {
  EXPECT_EQ(CompareIgnoringCase("abc", "ABC"), 0);
  EXPECT_LT(CompareIgnoringCase("ab", "ABC"), 0);
  EXPECT_GT(CompareIgnoringCase("b", "ABC"), 0);
  EXPECT_LT(CompareIgnoringCase("z", "\xC3\xA4"), 0);  // bytes above 127 sort behind letters
  EXPECT_TRUE(StartsWithIgnoringCase("Growth.FAM", "growth"));
  EXPECT_FALSE(StartsWithIgnoringCase("Gro", "growth"));
}

TEST(Text, PadsAndCutsByCharacters) {
  EXPECT_EQ(PadRight("ab", 4), "ab  ");
  EXPECT_EQ(PadRight("abcde", 4), "abcd");
  EXPECT_EQ(PadRight("z\xC3\xBCrich", 3), "z\xC3\xBCr");
  EXPECT_EQ(PadRight("\xC3\xBC", 3), "\xC3\xBC  ");
  EXPECT_EQ(UpToFirstDot("A.B.FAM"), "A");
}

TEST(Text, TrimsOnlyWhatItSaysAndKeepsEmptyParts) {
  EXPECT_EQ(TrimBlanks("  a\t "), "a\t");
  EXPECT_EQ(TrimRightBlanks("  a "), "  a");
  EXPECT_EQ(TrimWhite(" \r\n a b\t\n"), "a b");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(Split("a,,b,", ','), (std::vector<std::string_view>{"a", "", "b", ""}));
  EXPECT_EQ(Split("", ','), std::vector<std::string_view>{""});
}

TEST(Windows1252, AllBytesSurviveTheWayToUtf8AndBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(bytes)), bytes);
  EXPECT_EQ(Utf8FromWindows1252("\x80 \xFC"), "\xE2\x82\xAC \xC3\xBC");
  EXPECT_EQ(Windows1252FromUtf8("a\xCE\xB1z"), "a?z");        // Greek alpha
  EXPECT_EQ(Windows1252FromUtf8("\xF0\x9F\x98\x80!"), "?!");  // beyond 16 bits
  EXPECT_EQ(Windows1252FromUtf8("\xC2\x80"), "?");            // a control that no byte stands for
  EXPECT_EQ(Windows1252FromUtf8("\xFF\xE2\x82"), "???");      // no UTF-8
}

TEST(JsonQuoted, IsValidWhateverTheBytes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a\"b\\c", R"("a\"b\\c")"},
      {"x\r\n\ty", R"("x\r\n\ty")"},
      {std::string("\0\x1F", 2), R"("\u0000\u001f")"},
      {"\xC3\xBC", "\"\xC3\xBC\""},
      {"\xFC", "\"\xC3\xBC\""},                              // a lone byte is Windows-1252
      {"\xC0\xAF", "\"\xC3\x80\xC2\xAF\""},                  // over-long
      {"\xED\xA0\x80", "\"\xC3\xAD\xC2\xA0\xE2\x82\xAC\""},  // a surrogate
      {"\xE2\x82", "\"\xC3\xA2\xE2\x80\x9A\""}};             // cut
  for (const auto& [text, json] : cases) EXPECT_EQ(JsonQuoted(text), json);
}

}  // namespace
}  // namespace vistaplot
