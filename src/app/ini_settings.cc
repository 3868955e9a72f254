#include "app/ini_settings.h"

#include <cstddef>
#include <filesystem>
#include <utility>

#include "base/file_lock.h"
#include "base/files.h"

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

}  // namespace vistaplot
