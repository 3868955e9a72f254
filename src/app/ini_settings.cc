#include "app/ini_settings.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <utility>

#include "base/file_lock.h"
#include "base/files.h"
#include "base/text.h"

namespace vistaplot {

namespace {

// A settings file has some thirty lines; what is a thousand times as large is another one.
constexpr std::size_t kLargestSettings = std::size_t{1} << 20U;

// Keeps the content of a file that is no text beside it, under a name that is free.
Status KeepDamaged(const std::string& path, std::string_view content) {
  for (int number = 1;; ++number) {
    const std::string copy = path + ".damaged" + (number == 1 ? "" : std::to_string(number));
    std::error_code error;
    if (!std::filesystem::exists(copy, error)) return WriteFileAtomically(copy, content);
    const Result<std::string> kept = ReadWholeFile(copy);
    if (kept && kept.Value() == content) return Done{};
  }
}

// A file that is not there reads as empty.
Result<std::string> ReadIfThere(const std::string& path) {
  Result<std::string> content = ReadWholeFile(path, kLargestSettings);
  if (content) return content;
  const int number = content.Error().number;
  if (number == kErrorFileNotFound || number == kErrorPathNotFound) return std::string();
  return content;
}

Status MakeFolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? Status(Done{}) : MakeFolders(folder);
}

}  // namespace

IniSettings::IniSettings(std::string path) : path_(std::move(path)) {
  const Result<std::string> content = ReadIfThere(path_);
  if (content && IniText::IsText(content.Value())) text_ = IniText(content.Value());
}

std::string IniSettings::Get(std::string_view key, std::string_view fallback) const {
  return text_.Find(key).value_or(std::string(fallback));
}

Status IniSettings::SaveAll(std::span<const Setting> settings) {
  if (Status made = MakeFolderOf(path_); !made) return made;
  const Result<FileLock> lock = FileLock::Take(path_);
  if (!lock) return lock.Error();
  const Result<std::string> content = ReadIfThere(path_);
  if (!content) return content.Error();
  IniText text;
  if (IniText::IsText(content.Value())) {
    text = IniText(content.Value());
  } else if (Status kept = KeepDamaged(path_, content.Value()); !kept) {
    return kept;
  }
  bool changed = false;
  for (const Setting& setting : settings) changed = text.Put(setting.key, setting.value) || changed;
  if (changed) {
    if (Status written = WriteFileAtomically(path_, text.Content()); !written) return written;
  }
  text_ = std::move(text);
  return Done{};
}

namespace {

constexpr std::string_view kSection = "startup";
constexpr std::string_view kSectionLine = "[startup]";

// A settings file has no control characters but tabs and ends of line; what has others is no text.
bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t';
}

// Lines with their ends (CR LF, LF or CR), so that joining them gives the content back.
std::vector<std::string> SplitLines(std::string_view content) {
  std::vector<std::string> lines;
  while (!content.empty()) {
    std::size_t end = content.find_first_of("\r\n");
    end = end == std::string_view::npos ? content.size() : end + 1;
    if (content.substr(end - 1).starts_with("\r\n")) ++end;
    lines.emplace_back(content.substr(0, end));
    content.remove_prefix(end);
  }
  return lines;
}

std::string_view Stripped(std::string_view line) {
  return TrimWhite(WithoutByteOrderMark(line));
}

bool IsComment(std::string_view stripped) {
  return stripped.starts_with(';') || stripped.starts_with('#');
}

std::optional<std::string_view> SectionOf(std::string_view stripped) {
  if (!stripped.starts_with('[') || !stripped.ends_with(']')) return std::nullopt;
  return TrimWhite(stripped.substr(1, stripped.size() - 2));
}

// The value of a line "key=value" with that key, as it stands in the file.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
  const std::string_view stripped = Stripped(line);
  const std::size_t equals = stripped.find('=');
  if (IsComment(stripped) || equals == std::string_view::npos) return std::nullopt;
  if (!EqualsIgnoringCase(TrimWhite(stripped.substr(0, equals)), key)) return std::nullopt;
  return TrimWhite(stripped.substr(equals + 1));
}

bool IsQuoted(std::string_view written) {
  return written.size() >= 2 && written.front() == '"' && written.back() == '"';
}

std::string Decoded(std::string_view written) {
  if (IsQuoted(written)) written = written.substr(1, written.size() - 2);
  return std::string(written);
}

std::string Encoded(std::string_view value) {
  std::string text(value);
  std::replace_if(text.begin(), text.end(), IsControl, ' ');
  if (IsQuoted(text) || TrimWhite(text) != std::string_view(text)) return '"' + text + '"';
  return text;
}

struct Place {
  std::optional<std::size_t> line;         ///< the line that holds the key; the last one counts
  std::optional<std::size_t> section_end;  ///< where a new line of the section goes
};

Place FindKey(const std::vector<std::string>& lines, std::string_view key) {
  Place place;
  bool inside = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view stripped = Stripped(lines[i]);
    if (const auto section = SectionOf(stripped)) {
      inside = EqualsIgnoringCase(*section, kSection);
    } else if (inside && ValueOf(lines[i], key)) {
      place.line = i;
    }
    if (inside && !stripped.empty()) place.section_end = i + 1;
  }
  return place;
}

std::string EndOfLine(const std::vector<std::string>& lines) {
  return !lines.empty() && lines.front().ends_with("\r\n") ? "\r\n" : "\n";
}

bool HasEnd(std::string_view line) {
  return line.ends_with('\n') || line.ends_with('\r');
}

// Puts "key=value" into its line, or a new one at the end of the section.
void PutLine(std::vector<std::string>& lines, std::string_view key, std::string_view encoded) {
  const Place place = FindKey(lines, key);
  const std::string end = EndOfLine(lines);
  const std::string line = std::string(key) + "=" + std::string(encoded) + end;
  if (place.line) {
    lines[*place.line] = line;
    return;
  }
  const bool at_end = place.section_end.value_or(lines.size()) == lines.size();
  if (at_end && !lines.empty() && !HasEnd(lines.back())) lines.back() += end;
  if (!place.section_end) lines.push_back(std::string(kSectionLine) + end);
  const std::size_t at = place.section_end.value_or(lines.size());
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), line);
}

bool Holds(const std::vector<std::string>& lines, std::string_view key, std::string_view encoded) {
  const Place place = FindKey(lines, key);
  return place.line && Decoded(*ValueOf(lines[*place.line], key)) == Decoded(encoded);
}

}  // namespace

bool IniText::IsText(std::string_view content) {
  return std::none_of(content.begin(), content.end(), [](char c) {
    return IsControl(c) && c != '\r' && c != '\n';
  });
}

IniText::IniText(std::string_view content) : lines_(SplitLines(content)) {}

std::optional<std::string> IniText::Find(std::string_view key) const {
  const Place place = FindKey(lines_, key);
  if (!place.line) return std::nullopt;
  return Decoded(*ValueOf(lines_[*place.line], key));
}

bool IniText::Put(std::string_view key, std::string_view value) {
  const std::string encoded = Encoded(value);
  if (Holds(lines_, key, encoded)) return false;
  PutLine(lines_, key, encoded);
  return true;
}

std::string IniText::Content() const {
  std::string content;
  for (const std::string& line : lines_) content += line;
  return content;
}

}  // namespace vistaplot
