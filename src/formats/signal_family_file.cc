#include "formats/signal_family_file.h"

#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

std::vector<std::string> ParseSignalFamily(std::string_view bytes) {
  std::vector<std::string> entries;
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    const std::string_view entry = TakeField(line);
    if (!TrimBlanks(entry).empty()) entries.push_back(Utf8FromWindows1252(entry));
  }
  return entries;
}

std::string SignalFamilyBytes(std::span<const std::string> entries) {
  std::string bytes;
  for (const std::string& entry : entries) {
    bytes += '"';
    bytes += Windows1252FromUtf8(entry);
    bytes += "\"\r\n";
  }
  return bytes;
}

}  // namespace vistaplot
