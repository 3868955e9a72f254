#include "formats/vornaxil_file.h"

#include <cassert>

#include "base/text.h"

namespace vistaplot {

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
