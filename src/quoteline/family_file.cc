#include "quoteline/family_file.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "base/files.h"
#include "base/text.h"
#include "quoteline/quoteline.h"
#include "quoteline/service.h"
#include "quoteline/symbol.h"

namespace vistaplot {

namespace {

constexpr std::size_t kCountOffset = kFamilyNameLength + kFamilyTitleLength;
constexpr std::size_t kHeaderSize = 116;
constexpr std::size_t kEntrySize = 19;
constexpr std::size_t kMaxEntries = std::numeric_limits<std::int16_t>::max();

RuntimeError Refusal(std::string text, std::string subject = {}) {
  return {
      .number = QL_GENERAL_FAILURE, .description = std::move(text), .subject = std::move(subject)};
}

std::string Field(std::string_view utf8, std::size_t width) {
  std::string field = Windows1252FromUtf8(utf8);
  field.resize(width, ' ');
  return field;
}

bool IsNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("$^-_~!#%&@").find(c) != std::string_view::npos;
}

Status CheckNames(const Family& family) {
  if (family.name.empty() || family.name.size() > kFamilyNameLength ||
      !std::all_of(family.name.begin(), family.name.end(), IsNameCharacter)) {
    return Refusal("a family's name has 1 to 8 letters, digits or - _ $ ^ ~ ! # % & @",
                   "\"" + family.name + "\"");
  }
  const std::size_t length = Windows1252FromUtf8(family.title).size();
  if (length > kFamilyTitleLength) {
    return Refusal("the title has " + std::to_string(length) + " characters; a family holds 72",
                   family.name);
  }
  if (family.symbols.size() > kMaxEntries) {
    return Refusal("a family holds at most 32767 symbols", family.name);
  }
  return Done{};
}

// Upper case; every symbol must be known to the service.
Status CheckSymbols(const std::string& directory, Family& family) {
  auto service = Service::Open(directory);
  if (!service) return service.Error();
  std::string unknown;
  for (std::string& symbol : family.symbols) {
    const auto key = KeyOf(symbol);
    if (!key || !service.Value()->Find(*key)) {
      unknown += (unknown.empty() ? "" : ", ") + symbol;
    } else {
      symbol = SymbolText(*key);
    }
  }
  if (unknown.empty()) return Done{};
  return Refusal("no such issue; the family was not written", unknown);
}

}  // namespace

std::string FamilyFileBytes(const Family& family) {
  std::string bytes = Field(family.name, kFamilyNameLength);
  bytes += Field(family.title, kFamilyTitleLength);
  const auto count = static_cast<std::uint16_t>(family.symbols.size());
  bytes += static_cast<char>(count & 0xFFU);
  bytes += static_cast<char>(count >> 8U);
  bytes.resize(kHeaderSize, ' ');
  for (const std::string& symbol : family.symbols) bytes += Field(symbol, kEntrySize);
  return bytes;
}

Result<Family> ParseFamilyFile(std::string_view bytes) {
  if (bytes.size() < kHeaderSize) return Refusal("is shorter than a family's header");
  Family family;
  family.name = Utf8FromWindows1252(TrimBlanks(bytes.substr(0, kFamilyNameLength)));
  family.title =
      Utf8FromWindows1252(TrimRightBlanks(bytes.substr(kFamilyNameLength, kFamilyTitleLength)));
  const auto low = static_cast<unsigned char>(bytes[kCountOffset]);
  const auto high = static_cast<unsigned char>(bytes[kCountOffset + 1]);
  const std::size_t count = low + 256U * high;
  if (count > kMaxEntries) return Refusal("counts fewer than no symbols");
  const std::size_t held = (bytes.size() - kHeaderSize) / kEntrySize;
  if (count > held) {
    return Refusal("counts " + std::to_string(count) + " symbols but holds " +
                   std::to_string(held));
  }
  for (std::size_t i = 0; i < count; ++i) {
    std::string symbol(bytes.substr(kHeaderSize + i * kEntrySize, kSymbolLength));
    std::replace(symbol.begin(), symbol.end(), '\0', ' ');
    family.symbols.push_back(Utf8FromWindows1252(TrimBlanks(symbol)));
  }
  return family;
}

std::optional<std::string_view> FamilyFolder(std::string_view text) {
  std::string plain(text);
  std::replace(plain.begin(), plain.end(), '\\', '/');
  while (plain.ends_with('/')) plain.pop_back();
  const auto found =
      std::find_if(kFamilyFolders.begin(), kFamilyFolders.end(), [&](std::string_view folder) {
        return EqualsIgnoringCase(folder, plain);
      });
  if (found == kFamilyFolders.end()) return std::nullopt;
  return *found;
}

Result<std::string> WriteFamily(const std::string& service_directory,
                                std::string_view folder,
                                Family family) {
  const auto known = FamilyFolder(folder);
  if (!known) {
    return Refusal("is no family folder (QLDEF, QL4WIN/SQLDEF or USERDEF)", std::string(folder));
  }
  family.name = UpperCase(family.name);
  if (auto checked = CheckNames(family); !checked) return checked.Error();
  if (auto checked = CheckSymbols(service_directory, family); !checked) return checked.Error();
  const std::string target_folder = JoinPath(service_directory, *known);
  if (auto made = MakeFolders(target_folder); !made) return made.Error();
  const std::string path = JoinPath(target_folder, family.name + ".FAM");
  if (auto written = WriteFileAtomically(path, FamilyFileBytes(family)); !written) {
    return written.Error();
  }
  return path;
}

}  // namespace vistaplot
