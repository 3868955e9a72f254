// What the sources must keep: which room may include which, no circles, no overlong files.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// What one room may include beside itself and the standard library.
struct AllowedIncludes {
  std::vector<std::string> rooms;
  std::vector<std::string> headers;    ///< single headers of other rooms: "quoteline/quoteline.h"
  std::vector<std::string> libraries;  ///< "Qt", "SQLite", "CLI11"
};

/// By room name. A folder inside a folder is a room of its own when it has a row ("charts/view"),
/// and so is a source that lies in src itself ("main.cc").
using RoomTable = std::map<std::string, AllowedIncludes>;

/// Reads the table of rooms from the text of src/README.md: the rows `room` | holds | may include.
/// Throws std::runtime_error when there is none or when an entry names nothing that is known.
RoomTable ReadRoomTable(std::string_view markdown);

inline constexpr int kMostLines = 500;

/// All that breaks the rules in the sources below `source_dir`, in order of files, each
/// "room/file.cc:LINE: what is wrong".
std::vector<std::string> FindFaults(const std::filesystem::path& source_dir,
                                    const RoomTable& table);

/// Sources below `dir` that have more than kMostLines lines, as FindFaults names them.
std::vector<std::string> FindLongFiles(const std::filesystem::path& dir);

}  // namespace vistaplot
