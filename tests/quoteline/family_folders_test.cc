#include "quoteline/family_folders.h"

#include <gtest/gtest.h>

#include <string>

#include "support/quoteline_world.h"

namespace vistaplot {
namespace {

using test::QuotelineWorld;

TEST(FamilyFile, IsAHeaderOf116BytesAnd19BytesASymbol) {
  QuotelineWorld world;
  world.Import("w.csv", "Date,A,$NADV\n2000-01-03,10,5\n");
  const auto written = WriteFamily(
      world.folder.Path(),
      "ql4win\\sqldef",
      {.header = {.name = "two", .title = "Zwei f\xC3\xBCr alle"}, .symbols = {"$nadv", "A", "A"}});
  ASSERT_TRUE(written) << PlainText(written.Error());
  EXPECT_EQ(written.Value(), world.folder.Path("QL4WIN/SQLDEF/TWO.FAM"));
  const std::string bytes = world.folder.Read("QL4WIN/SQLDEF/TWO.FAM");
  ASSERT_EQ(bytes.size(), 116U + 3U * 19U);
  EXPECT_EQ(bytes.substr(0, 23), "TWO     Zwei f\xFCr alle  ");
  EXPECT_EQ(bytes.substr(79, 4), std::string(" \x03\0 ", 4));
  EXPECT_EQ(bytes.substr(116, 24), "$NADV              A    ");
}

TEST(FamilyFile, RefusesWhatTheProgramCouldNotLoad) {
  QuotelineWorld world;
  world.Import("A.csv", "Date,Close\n2000-01-03,10\n");
  const auto refusal = [&](std::string_view folder, Family family) {
    const auto written = WriteFamily(world.folder.Path(), folder, std::move(family));
    return written ? std::string() : PlainText(written.Error());
  };
  EXPECT_EQ(refusal("MYDEF", {.header = {.name = "F", .title = ""}, .symbols = {"A"}}),
            "MYDEF: is no family folder (QLDEF, QL4WIN/SQLDEF or USERDEF)");
  EXPECT_EQ(refusal("QLDEF", {.header = {.name = "NINECHARS", .title = ""}, .symbols = {"A"}}),
            "\"NINECHARS\": a family's name has 1 to 8 letters, digits or - _ $ ^ ~ ! # % & @");
  EXPECT_NE(refusal("QLDEF", {.header = {.name = "../X", .title = ""}, .symbols = {"A"}}), "");
  EXPECT_EQ(
      refusal("QLDEF", {.header = {.name = "F", .title = std::string(73, 't')}, .symbols = {"A"}}),
      "F: the title has 73 characters; a family holds 72");
  EXPECT_EQ(
      refusal("QLDEF", {.header = {.name = "F", .title = ""}, .symbols = {"X", "A", "TOOLONG"}}),
      "X, TOOLONG: no such issue; the family was not written");
  EXPECT_EQ(world.folder.Read("QLDEF/F.FAM"), "");
}

}  // namespace
}  // namespace vistaplot
