#include "marketdata/issue_lists.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/files.h"
#include "base/text.h"
#include "formats/family_file.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

constexpr std::size_t kNameWidth = 8;     // of a family
constexpr std::size_t kSymbolColumn = 6;  // symbol and what separates it from the name
constexpr std::size_t kSymbolWidth = 5;   // of a symbol
constexpr std::size_t kIssueNameWidth = 40;

struct FamilyFolder {
  std::string_view path;  ///< below the service's directory
  std::string_view action;
  std::string_view message;  ///< when the folder cannot be listed
};

constexpr std::array<FamilyFolder, 3> kFolders{{
    {"/QLDEF",
     "Loading Quoteline Families...",
     "Please check that you have the following family folder: \\ql\\qldef"},
    {"/QL4WIN/SQLDEF",
     "Loading Quoteline Stock Families...",
     "Please check that you have the following family folder: \\ql\\ql4win\\sqldef"},
    {"/USERDEF",
     "Loading User Defined Families...",
     "Please check that you have the following family folder: \\ql\\userdef"},
}};

/// The entry of one family file.
Result<std::string> FamilyEntryText(const std::string& folder, const std::string& file_name) {
  const Result<std::string> bytes = ReadWholeFile(JoinPath(folder, file_name));
  if (!bytes) {
    return bytes.Error();
  }
  const std::string name = UpperCase(LeftCharacters(UpToFirstDot(file_name), kNameWidth));
  return PadRight(name, kNameWidth) + " " + ReadFamilyHeader(bytes.Value()).title;
}

/// Adds the families of one folder to `entries`.
Status ListFolder(const std::string& folder,
                  std::vector<std::string>& entries,
                  Progress& progress) {
  const Result<std::vector<std::string>> names = ListFiles(folder, "*.FAM");
  if (!names) {
    return names.Error();
  }
  const std::size_t count = names.Value().size();
  for (std::size_t i = 0; i < count; ++i) {
    progress.ShowMeter(count > 1 ? 100.0 * static_cast<double>(i) / static_cast<double>(count - 1)
                                 : 100.0);
    const Result<std::string> entry = FamilyEntryText(folder, names.Value()[i]);
    if (!entry) {
      return entry.Error();
    }
    entries.push_back(entry.Value());
  }
  return Done{};
}

/// The beginning of an entry that a key is compared with, in upper case.
std::string PrefixOf(std::string_view entry, std::size_t characters) {
  return UpperCase(LeftCharacters(entry, characters));
}

/// The prefix as the ordering tests see it: "~" counts as "A".
std::string OrderedPrefix(std::string prefix) {
  if (prefix.starts_with('~')) {
    prefix.front() = 'A';
  }
  return prefix;
}

}  // namespace

std::optional<std::vector<std::string>> ListFamilies(const std::string& quoteline_dir,
                                                     const PathRoots& roots,
                                                     Dialogs& dialogs,
                                                     Progress& progress) {
  std::vector<std::string> entries;
  for (const FamilyFolder& folder : kFolders) {
    const ProgressScope scope(progress, folder.action);
    progress.ShowMeter(0.0);
    const std::string path = HostPath(quoteline_dir + std::string(folder.path), roots);
    if (!ListFolder(path, entries, progress)) {
      dialogs.Say(std::string(folder.message));
      dialogs.EndProgram(true);
      return std::nullopt;
    }
  }
  return entries;
}

std::vector<std::string> ListAllIssues(QuotelineApi& api, MarketData& market, Progress& progress) {
  const ProgressScope scope(progress, "Loading Funds...");
  progress.ShowMeter(0.0);
  std::vector<std::string> entries;
  std::string buffer(static_cast<std::size_t>(std::max(api.QLgetSymSize(), 0)) + 1, ' ');
  const std::int32_t iterator = api.QLgetIssueIter();
  while (api.QLissueNext(iterator, buffer.data()) != 0) {
    const std::string symbol = BufferText(buffer);
    std::string entry = PadRight(symbol, std::max(kSymbolColumn, symbol.size()));
    entry += LeftCharacters(IssueName(api, market, symbol), kIssueNameWidth);
    entries.push_back(std::move(entry));
  }
  api.QLcloseIssueIter(iterator);
  return entries;
}

std::string FamilyNameOfEntry(std::string_view entry) {
  return std::string(TrimBlanks(LeftCharacters(entry, kNameWidth)));
}

std::string SymbolOfEntry(std::string_view entry) {
  return std::string(TrimBlanks(LeftCharacters(entry, kSymbolWidth)));
}

std::optional<int> FindInList(std::span<const std::string> entries,
                              int current,
                              std::string_view key,
                              int direction) {
  const int count = static_cast<int>(entries.size());
  if (key.empty()) {
    return count > 0 ? std::optional(0) : std::nullopt;
  }
  const std::string wanted = UpperCase(key);
  const std::size_t characters = CharacterCount(key);
  const bool down = direction == 1;
  const int step = down ? 1 : -1;
  std::optional<int> neighbour;
  for (int i = down ? std::max(current, 0) : std::min(current, count - 1);
       i >= 0 && i < count && !neighbour;
       i += step) {
    const std::string prefix = PrefixOf(entries[static_cast<std::size_t>(i)], characters);
    if (prefix == wanted) {
      return i;
    }
    const int order = OrderedPrefix(prefix).compare(wanted);
    if (down ? order > 0 : order < 0) {
      neighbour = std::clamp(i - step, 0, count - 1);  // the one just passed, if there is one
    }
  }
  // Lists are not always in order; in one that is, nothing is found here.
  const auto begins = [&](const std::string& entry) {
    return PrefixOf(entry, characters) == wanted;
  };
  const auto found = std::find_if(entries.begin(), entries.end(), begins);
  if (found != entries.end()) return static_cast<int>(found - entries.begin());
  return neighbour;
}

std::optional<int> FindTyped(std::span<const std::string> entries,
                             int current,
                             std::string_view key) {
  const std::string_view trimmed = TrimBlanks(key);
  const bool on_entry = current >= 0 && current < static_cast<int>(entries.size());
  const std::string entry =
      on_entry ? UpperCase(entries[static_cast<std::size_t>(current)]) : std::string();
  return FindInList(entries, current, trimmed, UpperCase(trimmed) > entry ? 1 : -1);
}

std::string ChooseFamilyFile(const std::string& quoteline_dir, Dialogs& dialogs) {
  const FileRequest request{.title = "Select Family File",
                            .filter = "FAM (*.FAM)|*.FAM|",
                            .file_name = "*.FAM",
                            .default_extension = "*.FAM",
                            .initial_folder = quoteline_dir + "/USERDEF",
                            .must_exist = true};
  const MessageRequest no_choice{
      .text = "No file selected, press OK to continue. Press cancel to select a file",
      .title = {},
      .buttons = Buttons::kOkCancel};
  do {
    const std::vector<std::string> chosen = dialogs.ChooseFilesToOpen(request);
    if (!chosen.empty()) {
      return chosen.front();
    }
  } while (dialogs.ShowMessage(no_choice) == Answer::kCancel);
  return {};
}

Result<Family> ReadFamilyFile(const std::string& path) {
  const Result<std::string> bytes = ReadWholeFile(path);
  if (!bytes) {
    return bytes.Error();
  }
  Result<Family> family = ParseFamilyFile(bytes.Value());
  if (!family) {
    return MakeError(family.Error().number, path);
  }
  return family;
}

std::string FindFamilyFile(std::string_view name,
                           const std::string& quoteline_dir,
                           const PathRoots& roots) {
  for (const std::string_view folder : {"/QLDEF/", "/USERDEF/", "/QL4WIN/SQLDEF/"}) {
    std::string path = quoteline_dir;
    path.append(folder).append(name).append(".FAM");
    if (FileExists(HostPath(path, roots))) {
      return path;
    }
  }
  return {};
}

}  // namespace vistaplot
