#include "formats/kestrelix_file.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

KestrelixFile ReadKestrelixFile(std::string bytes) {
  KestrelixFile file{.title = {}, .records = {.fields = kKestrelixFields, .are_trimmed = true}};
  if (bytes.empty()) return file;
  std::vector<std::uint32_t>& starts = file.records.starts;
  starts = LineStarts(bytes);
  file.title = Utf8FromWindows1252(LineAt(bytes, starts, 0));
  starts.pop_back();
  const auto skipped = std::min<std::size_t>(starts.size(), kKestrelixNamesLine - 1);
  starts.erase(starts.begin(), starts.begin() + static_cast<std::ptrdiff_t>(skipped));
  if (!starts.empty()) file.records.bytes = std::move(bytes);
  return file;
}

void AppendKestrelixLine(std::string& bytes, std::span<const std::string> texts) {
  assert(texts.size() == kKestrelixFields.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::string text = Windows1252FromUtf8(texts[i]);
    text.resize(std::min(text.size(), kKestrelixFields[i].width));
    bytes.append(kKestrelixFields[i].width - text.size(), ' ');
    bytes += text;
  }
  bytes += "\r\n";
}

}  // namespace vistaplot
