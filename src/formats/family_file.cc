#include "formats/family_file.h"

#include <limits>

#include "base/text.h"

namespace vistaplot {
namespace {

// A field as text of its full width; what the record lacks are blanks.
std::string TextOf(std::string_view record, const FixedField& field) {
  return PadRight(FieldText(record, field), field.width);
}

}  // namespace

FamilyHeader ReadFamilyHeader(std::string_view bytes) {
  return {.name = TextOf(bytes, kFamilyName),
          .title = TextOf(bytes, kFamilyTitle),
          .count = FieldInt16(bytes, kFamilyCount),
          .rest = TextOf(bytes, kFamilyRest)};
}

Result<FamilyEntry> ReadFamilyEntry(std::string_view bytes, int index) {
  const std::size_t start = kFamilyDataStart + FamilyEntrySize * static_cast<std::size_t>(index);
  if (bytes.size() < start + FieldEnd(kFamilySymbol)) {
    return MakeError(kErrorInputPastEnd);
  }
  return FamilyEntry{TextOf(bytes.substr(start), kFamilySymbol)};
}

Result<Family> ParseFamilyFile(std::string_view bytes) {
  if (bytes.size() < kFamilyDataStart) {
    return MakeError(kErrorInputPastEnd);
  }
  Family family{.header = ReadFamilyHeader(bytes)};
  for (int index = 0; index < family.header.count; ++index) {
    const Result<FamilyEntry> entry = ReadFamilyEntry(bytes, index);
    if (!entry) {
      family.cut_off = true;
      break;
    }
    family.symbols.emplace_back(TrimBlanks(entry.Value().symbol));
  }
  return family;
}

Result<std::string> FamilyFileBytes(const FamilyHeader& header,
                                    std::span<const std::string> symbols) {
  if (symbols.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
    return MakeError(kErrorOverflow, header.name);
  }
  std::string bytes(kFamilyDataStart, ' ');
  SetFieldBytes(bytes, kFamilyName, Windows1252FromUtf8(header.name));
  SetFieldBytes(bytes, kFamilyTitle, Windows1252FromUtf8(header.title));
  SetFieldInt16(bytes, kFamilyCount, static_cast<std::int16_t>(symbols.size()));
  SetFieldBytes(bytes, kFamilyRest, Windows1252FromUtf8(header.rest));
  for (const std::string& symbol : symbols) {
    std::string entry(FamilyEntrySize, ' ');
    SetFieldBytes(entry, kFamilySymbol, Windows1252FromUtf8(symbol));
    bytes += entry;
  }
  return bytes;
}

}  // namespace vistaplot
