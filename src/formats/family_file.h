// Family files (*.FAM): the issues that belong together. A header of 116 bytes, then 19 bytes an
// issue; docs/formats/fam.md has every byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/records.h"
#include "base/result.h"

namespace vistaplot {

/// Bytes of one entry; the service gives a meaning to those behind the symbol.
inline constexpr std::size_t FamilyEntrySize = 19;  // NOLINT(readability-identifier-naming): agreed

inline constexpr FixedField kFamilyName{"name", 0, 8};
inline constexpr FixedField kFamilyTitle{"title", 8, 72};
inline constexpr FixedField kFamilyCount{"count", 80, 2};  ///< signed, low byte first
inline constexpr FixedField kFamilyRest{"rest", 82, 34};
inline constexpr std::array kFamilyHeaderFields{
    kFamilyName, kFamilyTitle, kFamilyCount, kFamilyRest};

/// The byte just behind the header: where entry 0 stands.
inline constexpr std::size_t kFamilyDataStart = FieldEnd(kFamilyRest);

/// A symbol within its entry.
inline constexpr FixedField kFamilySymbol{"symbol", 0, 5};

static_assert(FieldsFit(kFamilyHeaderFields, 116));

/// Texts in UTF-8. As read they are as long as they are stored: name 8, title 72, rest 34
/// characters, padded with blanks; a writer takes shorter ones as well.
struct FamilyHeader {
  std::string name = {};
  std::string title = {};
  std::int16_t count = 0;
  std::string rest = {};
};

struct FamilyEntry {
  std::string symbol;  ///< 5 characters, padded with blanks
};

/// A whole family.
struct Family {
  FamilyHeader header;
  std::vector<std::string> symbols = {};  ///< without blanks around, in the file's order
  bool cut_off = false;  ///< the file ends before the entries that its header counts
};

/// The header of a file's bytes. Fields that a cut file lacks are blank or 0; zero bytes in texts
/// count as blanks.
FamilyHeader ReadFamilyHeader(std::string_view bytes);

/// Entry `index`, from 0. Error 62 when the file ends before the entry's symbol does.
Result<FamilyEntry> ReadFamilyEntry(std::string_view bytes, int index);

/// The family in a file's bytes. Without a whole header it is error 62; a file with fewer entries
/// than its header counts gives those whose symbol is whole. A negative count is none.
Result<Family> ParseFamilyFile(std::string_view bytes);

/// The bytes of a family file: header.count is ignored, each symbol is cut or padded to 5
/// characters. Error 6 for more symbols than the count can hold.
Result<std::string> FamilyFileBytes(const FamilyHeader& header,
                                    std::span<const std::string> symbols);

}  // namespace vistaplot
