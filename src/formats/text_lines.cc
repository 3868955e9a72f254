#include "formats/text_lines.h"

#include <cassert>
#include <cstddef>

#include "base/text.h"

namespace vistaplot {

std::string_view TakeLine(std::string_view& bytes) {
  assert(!bytes.empty());
  const std::size_t end = bytes.find_first_of("\r\n");
  const std::string_view line = bytes.substr(0, end);
  if (end == std::string_view::npos) {
    bytes = {};
  } else {
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return line;
}

std::vector<std::uint32_t> LineStarts(std::string_view bytes) {
  std::size_t count = 0;
  for (std::string_view rest = bytes; !rest.empty(); TakeLine(rest)) ++count;
  std::vector<std::uint32_t> starts;
  starts.reserve(count);  // a list that grows would take twice the room
  for (std::string_view rest = bytes; !rest.empty(); TakeLine(rest)) {
    starts.push_back(static_cast<std::uint32_t>(bytes.size() - rest.size()));
  }
  return starts;
}

std::string_view TakeField(std::string_view& line) {
  line = TrimWhite(line);
  std::string_view field;
  if (line.starts_with('"')) {
    const std::size_t quote = line.find('"', 1);
    field = line.substr(1, quote == std::string_view::npos ? quote : quote - 1);
    line.remove_prefix(quote == std::string_view::npos ? line.size() : quote);
  } else {
    field = TrimWhite(line.substr(0, line.find(',')));
  }
  const std::size_t comma = line.find(',');
  line = comma == std::string_view::npos ? std::string_view{} : line.substr(comma + 1);
  return field;
}

}  // namespace vistaplot
