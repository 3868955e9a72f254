// What the sources must keep: which room may include which, no circles, no overlong files.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/text.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr std::size_t kMostLines = 500;
const fs::path kRoot = VISTAPLOT_SOURCE_DIR;

/// What each room may include beside itself and the standard library: rooms, single headers of
/// others ("quoteline/quoteline.h"), libraries ("Qt"). A folder inside a folder is a room of its
/// own when it has a row ("charts/view"), and so is a source that lies in src itself.
using RoomTable = std::map<std::string, std::set<std::string>>;

Texts LinesOf(const fs::path& path) {
  std::ifstream in(path);
  Texts lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string Bare(std::string_view cell) {
  const auto first = cell.find_first_not_of(" `");
  if (first == std::string_view::npos) return {};
  return std::string(cell.substr(first, cell.find_last_not_of(" `") - first + 1));
}

/// One entry of a row's last cell; `above` are the rows ahead of it, oldest first.
void Allow(const std::string& entry, const Texts& above, std::set<std::string>& allowed) {
  const std::string suffix = " and above";
  if (entry == "standard library") return;
  if (entry == "all above") {
    allowed.insert(above.begin(), above.end());
  } else if (entry.ends_with(suffix)) {
    const auto last =
        std::find(above.begin(), above.end(), entry.substr(0, entry.size() - suffix.size()));
    if (last == above.end()) throw std::runtime_error("unknown room in: " + entry);
    allowed.insert(above.begin(), last + 1);
  } else if (entry.ends_with(".h") ||
             std::regex_match(entry, std::regex("Qt|SQLite|CLI11|nlohmann"))) {
    allowed.insert(entry);
  } else {  // the row of that name, or all folders of a room that has a row for each of them
    const std::size_t before = allowed.size();
    for (const std::string& row : above) {
      if (row == entry || row.starts_with(entry + '/')) allowed.insert(row);
    }
    if (allowed.size() == before) throw std::runtime_error("neither a row nor a library: " + entry);
  }
}

/// From the rows | room | holds | may include | of src/README.md.
RoomTable ReadRoomTable(const Texts& markdown) {
  RoomTable table;
  Texts above;
  for (const std::string& line : markdown) {
    if (!line.starts_with("| `")) continue;
    const auto cells = Split(line, '|');  // the first one, ahead of the bar, is empty
    const std::string room = Bare(cells.at(1));
    for (const auto entry : Split(cells.at(3), ',')) Allow(Bare(entry), above, table[room]);
    above.push_back(room);
  }
  if (table.empty()) throw std::runtime_error("no table of rooms");
  return table;
}

/// The row that a path belongs to: that of its own folder, else of the nearest one around it; the
/// first folder, or the file in none, where the table has no such row.
std::string RoomOf(const std::string& path, const RoomTable& table) {
  for (auto end = path.size(); end != std::string::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    if (table.contains(path.substr(0, end))) return path.substr(0, end);
  }
  return path.substr(0, path.find('/'));
}

/// The library that an angled include belongs to; "" for the standard library and the host's, and
/// its folder for one that no row can name.
std::string LibraryOf(const std::string& name) {
  static const std::regex kQt("^(Q[A-Z]|Qt|q)");
  if (std::regex_search(name, kQt)) return "Qt";
  if (name.starts_with("sqlite3")) return "SQLite";
  const auto slash = name.find('/');
  if (slash == std::string::npos || name.starts_with("sys/")) return {};
  return name.starts_with("CLI/") ? "CLI11" : name.substr(0, slash);
}

/// What is wrong with one include of a room; "" when nothing is.
std::string FaultOf(const std::string& name,
                    bool quoted,
                    const std::string& room,
                    const RoomTable& table) {
  if (quoted && name.find('/') == std::string::npos) {
    return name.ends_with(".moc") ? "" : "\"" + name + "\" does not name its room";
  }
  const std::string needed = quoted ? RoomOf(name, table) : LibraryOf(name);
  const auto& allowed = table.at(room);
  if (needed.empty() || needed == room || allowed.contains(needed) || allowed.contains(name)) {
    return {};
  }
  return room + " may not include " + (quoted ? name : needed + " <" + name + ">");
}

/// The sources below a folder by their paths there, each with its lines.
std::map<std::string, Texts> SourcesBelow(const fs::path& folder) {
  std::map<std::string, Texts> sources;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const auto extension = entry.path().extension();
    if (extension != ".cc" && extension != ".h") continue;
    sources[fs::relative(entry.path(), folder).generic_string()] = LinesOf(entry.path());
  }
  return sources;
}

/// Walks the sources and their quoted includes in depth; faults are "room/file.cc:LINE: what is
/// wrong".
class Search {
 public:
  Search(const fs::path& folder, const RoomTable& table)
      : sources_(SourcesBelow(folder)), table_(table) {}

  Texts Run() {
    for (const auto& [path, lines] : sources_) Visit(path, lines);
    return std::move(faults_);
  }

 private:
  void Visit(const std::string& path, const Texts& lines) {
    static const std::regex kInclude(R"rx(^\s*#\s*include\s*([<"])([^>"]+)[>"])rx");
    if (!seen_.insert(path).second) return;
    const std::string room = RoomOf(path, table_);
    const bool known = table_.contains(room);
    if (!known) faults_.push_back(path + ":1: the table has no row for " + room);
    open_.insert(path);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      std::smatch match;
      if (!known || !std::regex_search(lines[i], match, kInclude)) continue;
      std::string fault = FaultOf(match[2], match[1] == "\"", room, table_);
      if (open_.contains(match[2])) fault = "including " + match[2].str() + " closes a circle";
      if (!fault.empty()) faults_.push_back(path + ":" + std::to_string(i + 1) + ": " + fault);
      const auto next = sources_.find(match[2]);
      if (next != sources_.end()) Visit(next->first, next->second);
    }
    open_.erase(path);
  }

  std::map<std::string, Texts> sources_;
  const RoomTable& table_;
  std::set<std::string> seen_;
  std::set<std::string> open_;  ///< on the way from the file that the walk began with
  Texts faults_;
};

TEST(SourceRules, RoomsIncludeOnlyWhatTheirRowAllows) {
  const RoomTable table = ReadRoomTable(LinesOf(kRoot / "src/README.md"));
  EXPECT_EQ(Search(kRoot / "src", table).Run(), Texts{});
}

TEST(SourceRules, FilesStayShort) {
  for (const char* folder : {"src", "tests", "bench"}) {
    for (const auto& [path, lines] : SourcesBelow(kRoot / folder)) {
      EXPECT_LE(lines.size(), kMostLines) << path;
    }
  }
}

// They are not built with the tests, so nothing else tells of a header that has moved.
TEST(SourceRules, BenchmarksAndFuzzersIncludeWhatIsThere) {
  const std::regex include(R"rx(^#include "([^"]+)")rx");
  for (const std::string folder : {"bench", "fuzz"}) {
    for (const auto& [path, lines] : SourcesBelow(kRoot / folder)) {
      for (const std::string& line : lines) {
        std::smatch match;
        if (!std::regex_search(line, match, include)) continue;
        const auto is_below = [&](const char* top) {
          return fs::exists(kRoot / top / match[1].str());
        };
        EXPECT_TRUE(is_below("src") || is_below("tests") || is_below(folder.c_str()))
            << path << line;
      }
    }
  }
}

TEST(SourceRules, EachForbiddenIncludeIsNamedWithItsLine) {
  const RoomTable table = ReadRoomTable({"| `low` | numbers | standard library |",
                                         "| `store` | a database | low, SQLite |",
                                         "| `house/cellar` | a folder in a folder | low |",
                                         "| `house/attic` | above it | house/cellar |",
                                         "| `wide` | everything | low, store/store.h |",
                                         "| `skin` | windows | store and above, Qt |",
                                         "| `top` | uses both folders | house |"});
  const std::pair<std::string, std::string> cases[] = {
      {"low/a.cc\n#include <sys/stat.h>\n// see #include <QString>\n", ""},
      {"low/a.cc\n\n#include \"store/b.h\"\n", "low/a.cc:2: low may not include store/b.h"},
      {"low/a.cc\n  # include <QString>\n", "low/a.cc:1: low may not include Qt <QString>"},
      {"low/a.cc\n#include \"b.h\"\n", "low/a.cc:1: \"b.h\" does not name its room"},
      {"low/a.h\n#include \"low/a.h\"\n", "low/a.h:1: including low/a.h closes a circle"},
      {"wide/a.cc\n#include \"store/store.h\"\n", ""},
      {"wide/a.cc\n#include \"store/b.h\"\n", "wide/a.cc:1: wide may not include store/b.h"},
      {"skin/a.cc\n#include <QString>\n#include \"low/b.h\"\n#include \"a.moc\"\n", ""},
      {"skin/a.cc\n#include \"wide/a.h\"\n", "skin/a.cc:1: skin may not include wide/a.h"},
      {"house/cellar/a.cc\n#include \"house/attic/b.h\"\n",
       "house/cellar/a.cc:1: house/cellar may not include house/attic/b.h"},
      {"top/a.cc\n#include \"house/attic/b.h\"\n", ""},
      {"new/a.cc\n", "new/a.cc:1: the table has no row for new"},
  };
  for (const auto& [file, fault] : cases) {
    const TemporaryFolder tree;
    tree.Write(file.substr(0, file.find('\n')), file.substr(file.find('\n') + 1));
    EXPECT_EQ(Search(tree.Path(), table).Run(), fault.empty() ? Texts{} : Texts{fault}) << file;
  }
  EXPECT_THROW(ReadRoomTable({"| `a` | x | b |"}), std::runtime_error);
}

}  // namespace
}  // namespace vistaplot::test
