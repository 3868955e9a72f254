#include "rules/source_rules.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>

namespace vistaplot {
namespace {

namespace fs = std::filesystem;

struct Include {
  std::string name;
  bool quoted = false;
  int line = 0;
};

struct Source {
  std::string path;  ///< below the source folder, with "/"
  std::vector<Include> includes;
};

bool Contains(const std::vector<std::string>& list, std::string_view text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" `");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" `") - first + 1));
}

std::vector<std::string> Split(std::string_view text, char at) {
  std::vector<std::string> parts;
  std::istringstream in{std::string(text)};
  for (std::string part; std::getline(in, part, at);) parts.push_back(Trimmed(part));
  return parts;
}

std::vector<std::string> ReadLines(const fs::path& path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The rows that an entry names: the one of that name, or all folders of a room that has a row for
/// each of them.
std::vector<std::string> RoomsNamed(const std::string& entry,
                                    const std::vector<std::string>& above) {
  std::vector<std::string> named;
  for (const auto& row : above) {
    if (row == entry || row.starts_with(entry + '/')) named.push_back(row);
  }
  return named;
}

/// One entry of a row's last cell; `above` are the rows ahead of it, oldest first.
void Allow(const std::string& entry,
           const std::vector<std::string>& above,
           AllowedIncludes& allowed) {
  static const std::set<std::string, std::less<>> kLibraries{"Qt", "SQLite", "CLI11", "nlohmann"};
  const std::string suffix = " and above";
  if (entry == "standard library") return;
  if (entry == "all above") {
    allowed.rooms = above;
  } else if (entry.ends_with(suffix)) {
    const auto last =
        std::find(above.begin(), above.end(), entry.substr(0, entry.size() - suffix.size()));
    if (last == above.end()) throw std::runtime_error("unknown room in: " + entry);
    allowed.rooms.assign(above.begin(), last + 1);
  } else if (kLibraries.contains(entry)) {
    allowed.libraries.push_back(entry);
  } else if (entry.ends_with(".h")) {
    allowed.headers.push_back(entry);
  } else {
    const auto named = RoomsNamed(entry, above);
    allowed.rooms.insert(allowed.rooms.end(), named.begin(), named.end());
    if (!named.empty()) return;
    throw std::runtime_error("neither a row above nor a library: " + entry);
  }
}

/// The library that an angled include belongs to; "" for the standard library and the host's, and
/// its folder for one that no row can name.
std::string LibraryOf(const std::string& name) {
  if (name.size() > 1 && name[0] == 'Q' && name[1] >= 'A' && name[1] <= 'Z') return "Qt";
  if (name.starts_with("Qt") || name.starts_with("q")) return "Qt";
  if (name.starts_with("sqlite3")) return "SQLite";
  const auto slash = name.find('/');
  if (slash == std::string::npos || name.starts_with("sys/")) return {};
  const std::string folder = name.substr(0, slash);
  return folder == "CLI" ? "CLI11" : folder;
}

Source ReadSource(const fs::path& file, const fs::path& source_dir) {
  static const std::regex kInclude(R"rx(^\s*#\s*include\s*([<"])([^>"]+)[>"])rx");
  Source source;
  source.path = fs::relative(file, source_dir).generic_string();
  const auto lines = ReadLines(file);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch match;
    if (!std::regex_search(lines[i], match, kInclude)) continue;
    source.includes.push_back({match[2], match[1] == "\"", static_cast<int>(i) + 1});
  }
  return source;
}

std::vector<fs::path> SourceFiles(const fs::path& dir) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(dir)) {
    const auto extension = entry.path().extension();
    if (extension == ".cc" || extension == ".h") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// The row that a path belongs to: that of its own folder, else of the nearest one around it; the
/// first folder, or the file in none, where the table has no such row.
std::string RoomOf(const std::string& path, const RoomTable& table) {
  if (table.contains(path)) return path;
  for (auto end = path.rfind('/'); end != std::string::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    if (table.contains(path.substr(0, end))) return path.substr(0, end);
  }
  return path.substr(0, path.find('/'));
}

/// What is wrong with one include of a room; "" when nothing is.
std::string FaultOf(const Include& include, const std::string& room, const RoomTable& table) {
  const AllowedIncludes& allowed = table.at(room);
  if (!include.quoted) {
    const auto library = LibraryOf(include.name);
    if (library.empty() || Contains(allowed.libraries, library)) return {};
    return room + " may not include " + library + " <" + include.name + ">";
  }
  if (include.name.find('/') == std::string::npos) {
    if (include.name.ends_with(".moc")) return {};
    return "\"" + include.name + "\" does not name its room";
  }
  const std::string other = RoomOf(include.name, table);
  if (other == room || Contains(allowed.rooms, other)) return {};
  if (Contains(allowed.headers, include.name)) return {};
  return room + " may not include " + include.name;
}

/// Walks the quoted includes in depth and reports each one that closes a circle.
class CircleSearch {
 public:
  explicit CircleSearch(const std::vector<Source>& sources) {
    for (const auto& source : sources) by_path_.emplace(source.path, &source);
  }

  std::vector<std::string> Run() {
    for (const auto& [path, source] : by_path_) Visit(*source);
    return std::move(faults_);
  }

 private:
  void Visit(const Source& source) {
    if (!seen_.insert(source.path).second) return;
    open_.insert(source.path);
    for (const auto& include : source.includes) {
      if (open_.contains(include.name)) {
        faults_.push_back(source.path + ":" + std::to_string(include.line) + ": including " +
                          include.name + " closes a circle");
      } else if (const auto next = by_path_.find(include.name); next != by_path_.end()) {
        Visit(*next->second);
      }
    }
    open_.erase(source.path);
  }

  std::map<std::string, const Source*> by_path_;
  std::set<std::string> seen_;
  std::set<std::string> open_;  ///< on the way from the file that the walk began with
  std::vector<std::string> faults_;
};

}  // namespace

RoomTable ReadRoomTable(std::string_view markdown) {
  RoomTable table;
  std::vector<std::string> above;
  for (const auto& line : Split(markdown, '\n')) {
    if (!line.starts_with("| `")) continue;
    const auto cells = Split(line, '|');  // the first one, ahead of the bar, is empty
    if (cells.size() < 4) throw std::runtime_error("not three cells: " + line);
    for (const auto& entry : Split(cells[3], ',')) Allow(entry, above, table[cells[1]]);
    above.push_back(cells[1]);
  }
  if (table.empty()) throw std::runtime_error("no table of rooms");
  return table;
}

std::vector<std::string> FindFaults(const fs::path& source_dir, const RoomTable& table) {
  std::vector<Source> sources;
  std::vector<std::string> faults;
  for (const auto& file : SourceFiles(source_dir)) {
    sources.push_back(ReadSource(file, source_dir));
    const Source& source = sources.back();
    const std::string room = RoomOf(source.path, table);
    if (!table.contains(room)) {
      faults.push_back(source.path + ":1: the table has no row for " + room);
      continue;
    }
    for (const auto& include : source.includes) {
      const auto fault = FaultOf(include, room, table);
      if (fault.empty()) continue;
      faults.push_back(source.path + ":" + std::to_string(include.line) + ": " + fault);
    }
  }
  const auto circles = CircleSearch(sources).Run();
  faults.insert(faults.end(), circles.begin(), circles.end());
  return faults;
}

std::vector<std::string> FindLongFiles(const fs::path& dir) {
  std::vector<std::string> faults;
  for (const auto& file : SourceFiles(dir)) {
    const auto count = ReadLines(file).size();
    if (count <= kMostLines) continue;
    faults.push_back(fs::relative(file, dir).generic_string() + ":" + std::to_string(count) +
                     ": more than " + std::to_string(kMostLines) + " lines");
  }
  return faults;
}

}  // namespace vistaplot
