#include "formats/vornaxil_file.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/text.h"
#include "formats/text_lines.h"

namespace vistaplot {

VornaxilFile ReadVornaxilFile(std::string bytes) {
  VornaxilFile file;
  file.records.bytes = std::move(bytes);
  std::vector<std::uint32_t>& starts = file.records.starts;
  starts = LineStarts(file.records.bytes);
  if (!starts.empty()) starts.pop_back();
  if (starts.size() >= kVornaxilKindLine) {
    file.kind = VornaxilKindOf(LineAt(file.records.bytes, starts, kVornaxilKindLine - 1));
    file.records.fields = VornaxilFields(*file.kind);
  }
  const auto skipped = std::min<std::size_t>(starts.size(), kFirstVornaxilLine - 1);
  starts.erase(starts.begin(), starts.begin() + static_cast<std::ptrdiff_t>(skipped));
  return file;
}

std::string_view VornaxilKindOf(std::string_view line2) {
  constexpr FixedField kMark{"kind", 5, 2};
  const std::string_view mark = FieldBytes(line2, kMark);
  return mark == "MA" || mark == "St" ? kVornaxilSm : kVornaxilApm;
}

FixedFields VornaxilFields(std::string_view kind) {
  if (kind == kVornaxilSm) return kVornaxilSmFields;
  return kVornaxilApmFields;
}

void AppendVornaxilRow(std::string& bytes, FixedFields fields, std::span<const std::string> texts) {
  assert(texts.size() == fields.size());
  std::string row(FieldEnd(fields.back()), ' ');
  for (std::size_t i = 0; i < fields.size(); ++i) {
    SetFieldBytes(row, fields[i], Windows1252FromUtf8(texts[i]));
  }
  bytes += TrimRightBlanks(row);
  bytes += "\r\n";
}

}  // namespace vistaplot
