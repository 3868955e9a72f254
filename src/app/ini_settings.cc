#include "app/ini_settings.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <utility>

#include "base/files.h"
#include "base/text.h"

namespace vistaplot {

namespace {

constexpr std::string_view kSection = "startup";
constexpr std::string_view kSectionLine = "[startup]";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// A settings file has no control characters but tabs and ends of line; what has others is no text.
bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t';
}

bool IsText(std::string_view content) {
  return std::none_of(content.begin(), content.end(), [](char c) {
    return IsControl(c) && c != '\r' && c != '\n';
  });
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
  if (line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  return TrimWhite(line);
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

std::string Joined(const std::vector<std::string>& lines) {
  std::string content;
  for (const std::string& line : lines) content += line;
  return content;
}

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
  Result<std::string> content = ReadWholeFile(path);
  if (content) return content;
  const int number = content.Error().number;
  if (number == kErrorFileNotFound || number == kErrorPathNotFound) return std::string();
  return content;
}

Status WriteWithFolder(const std::string& path, std::string_view content) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  if (!folder.empty()) {
    if (Status made = MakeFolders(folder); !made) return made;
  }
  return WriteFileAtomically(path, content);
}

}  // namespace

IniSettings::IniSettings(std::string path) : path_(std::move(path)) {
  const Result<std::string> content = ReadIfThere(path_);
  if (content && IsText(content.Value())) lines_ = SplitLines(content.Value());
}

std::string IniSettings::Get(std::string_view key, std::string_view fallback) const {
  const Place place = FindKey(lines_, key);
  if (!place.line) return std::string(fallback);
  return Decoded(*ValueOf(lines_[*place.line], key));
}

Status IniSettings::Save(std::string_view key, std::string_view value) {
  const Result<std::string> content = ReadIfThere(path_);
  if (!content) return content.Error();
  const bool text = IsText(content.Value());
  if (!text) {
    if (Status kept = KeepDamaged(path_, content.Value()); !kept) return kept;
  }
  std::vector<std::string> lines;
  if (text) lines = SplitLines(content.Value());
  if (!Holds(lines, key, Encoded(value))) {
    PutLine(lines, key, Encoded(value));
    if (Status written = WriteWithFolder(path_, Joined(lines)); !written) return written;
  }
  lines_ = std::move(lines);
  return Done{};
}

}  // namespace vistaplot
