#include "rules/source_rules.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using Faults = std::vector<std::string>;

const std::string kRoot = VISTAPLOT_SOURCE_DIR;

constexpr std::string_view kTable =
    "Words ahead.\n"
    "| room | holds | may include |\n"
    "|---|---|---|\n"
    "| `low` | numbers | standard library |\n"
    "| `store` | a database | low, SQLite |\n"
    "| `house/cellar` | a folder in a folder | low |\n"
    "| `house/attic` | the one above it | house/cellar |\n"
    "| `wide` | everything | low, store/store.h |\n"
    "| `skin` | windows | store and above, Qt |\n"
    "| `top` | uses both folders | house |\n"
    "| `main.cc` | the program | all above |\n";

std::string AllOf(const std::string& path) {
  std::ifstream in(path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(ProjectSources, RoomsIncludeOnlyWhatTheirRowAllows) {
  const auto table = ReadRoomTable(AllOf(kRoot + "/src/README.md"));
  EXPECT_EQ(FindFaults(kRoot + "/src", table), Faults{});
}

TEST(ProjectSources, FilesStayShort) {
  for (const char* dir : {"/src", "/tests", "/bench"}) {
    EXPECT_EQ(FindLongFiles(kRoot + dir), Faults{}) << dir;
  }
}

TEST(SourceRules, EachForbiddenIncludeIsNamedWithItsLine) {
  struct Case {
    const char* file;
    const char* content;
    const char* fault;  ///< behind the file's name; null when the include is allowed
  };
  const Case cases[] = {
      {"low/a.cc", "#include <string>\n#include <sys/stat.h>\n", nullptr},
      {"low/a.cc", "\n#include \"store/b.h\"\n", ":2: low may not include store/b.h"},
      {"low/a.cc", "  # include <QString>\n", ":1: low may not include Qt <QString>"},
      {"low/a.cc", "#include <QtCore/QString>\n", ":1: low may not include Qt <QtCore/QString>"},
      {"low/a.cc", "#include <boost/any.hpp>\n", ":1: low may not include boost <boost/any.hpp>"},
      {"low/a.cc", "#include \"b.h\"\n", ":1: \"b.h\" does not name its room"},
      {"low/a.cc", "// see #include <QString>\n", nullptr},
      {"store/a.cc", "#include <sqlite3.h>\n#include \"low/b.h\"\n", nullptr},
      {"wide/a.cc", "#include \"store/store.h\"\n", nullptr},
      {"wide/a.cc", "#include \"store/other.h\"\n", ":1: wide may not include store/other.h"},
      {"skin/a.cc", "#include <QString>\n#include \"low/b.h\"\n#include \"a.moc\"\n", nullptr},
      {"skin/a.cc", "#include \"wide/a.h\"\n", ":1: skin may not include wide/a.h"},
      {"house/attic/a.cc", "#include \"house/cellar/b.h\"\n", nullptr},
      {"house/attic/a.cc", "#include \"low/b.h\"\n", ":1: house/attic may not include low/b.h"},
      {"house/cellar/a.cc",
       "#include \"house/attic/b.h\"\n",
       ":1: house/cellar may not include house/attic/b.h"},
      {"top/a.cc", "#include \"house/attic/b.h\"\n#include \"house/cellar/b.h\"\n", nullptr},
      {"top/a.cc", "#include \"house/b.h\"\n", ":1: top may not include house/b.h"},
      {"house/a.cc", "", ":1: the table has no row for house"},
      {"main.cc", "#include \"skin/a.h\"\n", nullptr},
      {"new/a.cc", "", ":1: the table has no row for new"},
  };
  const auto table = ReadRoomTable(kTable);
  for (const auto& c : cases) {
    const test::TemporaryFolder tree;
    tree.Write(c.file, c.content);
    const auto wanted = c.fault == nullptr ? Faults{} : Faults{std::string(c.file) + c.fault};
    EXPECT_EQ(FindFaults(tree.Path(), table), wanted) << c.content;
  }
}

TEST(SourceRules, ACircleIsReportedWhereItCloses) {
  const test::TemporaryFolder tree;
  tree.Write("low/a.h", "#include \"low/b.h\"\n");
  tree.Write("low/b.h", "\n#include \"low/c.h\"\n");
  tree.Write("low/c.h", "\n\n#include \"low/a.h\"\n");
  tree.Write("low/d.h", "#include \"low/b.h\"\n#include \"low/c.h\"\n");
  EXPECT_EQ(FindFaults(tree.Path(), ReadRoomTable(kTable)),
            Faults{"low/c.h:3: including low/a.h closes a circle"});
}

TEST(SourceRules, AFileOfOneLineTooManyIsNamed) {
  const test::TemporaryFolder tree;
  std::string lines;
  for (int i = 0; i < kMostLines; ++i) lines += "//\n";
  tree.Write("low/full.cc", lines);
  tree.Write("low/over.cc", lines + "//\n");
  EXPECT_EQ(FindLongFiles(tree.Path()), Faults{"low/over.cc:501: more than 500 lines"});
}

TEST(SourceRules, ATableThatNamesNothingKnownIsRefused) {
  EXPECT_THROW(ReadRoomTable("no table"), std::runtime_error);
  EXPECT_THROW(ReadRoomTable("| `a` | x | b |\n| `b` | x | standard library |\n"),
               std::runtime_error);
  EXPECT_THROW(ReadRoomTable("| `a` | x | b and above |\n"), std::runtime_error);
}

}  // namespace
}  // namespace vistaplot
