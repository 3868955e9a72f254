#include "import/result_files.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/files.h"
#include "formats/detail_file.h"
#include "formats/kestrelix_file.h"
#include "formats/summary_file.h"
#include "formats/text_lines.h"
#include "formats/vornaxil_file.h"
#include "formats/zephyrine_file.h"
#include "table/sheet.h"

namespace vistaplot {

namespace {

namespace fs = std::filesystem;

// A folder, a pipe or a device in the file's place is refused before it is opened: reading them
// may never end.
Result<std::string> ReadResultFile(const std::string& path) {
  std::error_code error;
  if (fs::exists(path, error) && !fs::is_regular_file(path, error)) {
    return MakeError(kErrorPathFileAccess, path);
  }
  return ReadWholeFile(path, kMostRecordBytes);
}

// The places of lines that hold next to nothing would take several times the file's room; no report
// looks so.
Result<std::string> ReadLinesFile(const std::string& path) {
  constexpr std::size_t kFewLines = 1'000'000;
  Result<std::string> bytes = ReadResultFile(path);
  if (!bytes || CountLines(bytes.Value()) <= bytes.Value().size() / 2 + kFewLines) return bytes;
  return RuntimeError{
      .number = kErrorOverflow, .description = "more lines than text", .subject = path};
}

void Empty(Sheet& sheet) {
  sheet.ClearAll();
  sheet.MaxRow = 0;
  sheet.MaxCol = 0;
  sheet.FixedRows = 0;
  sheet.FixedCols = 0;
  sheet.selection.clear();
}

// The frame of every reader. read(path) gives the file's bytes; fill(sheet, bytes) lays the sheet
// out, fills it and returns its last row.
template <class Fill>
Status LoadFile(const ImportTarget& target,
                const std::string& path,
                std::string_view action,
                Result<std::string> (*read)(const std::string&),
                Fill fill) {
  const ProgressScope scope(target.progress, action);
  target.progress.ShowMeter(0.0);
  Sheet& sheet = target.table.Active();
  Empty(sheet);
  Result<std::string> bytes = read(path);
  if (bytes) {
    EndAtRow(sheet, fill(sheet, std::move(bytes.Value())));
    target.progress.ShowMeter(100.0);
  }
  target.table.NotifyContent(target.table.ActiveSheet());
  if (!bytes) return bytes.Error();
  return Done{};
}

// Records from `first_row` on; the row of the last one, or the one above `first_row`.
int Fill(Sheet& sheet, int first_row, Records records) {
  const auto count = static_cast<int>(records.starts.size());
  sheet.SetRecords(first_row, std::move(records));
  return first_row - 1 + count;
}

}  // namespace

void SetupZephyrineSheet(Sheet& sheet) {
  LayOutFields(sheet, kZephyrineFields, 2);
}

void SetupVornaxilSheet(Sheet& sheet, std::string_view kind) {
  LayOutFields(sheet, VornaxilFields(kind), 1);
}

void SetupSummarySheet(Sheet& sheet) {
  LayOutFields(sheet, kSummaryFields, 2);
}

void SetupDetailSheet(Sheet& sheet) {
  LayOutFields(sheet, kDetailFields, 2);
}

Status LoadZephyrineSummary(const ImportTarget& target, const std::string& path) {
  const auto fill = [](Sheet& sheet, std::string bytes) {
    SetupZephyrineSheet(sheet);
    return Fill(sheet, 3, ReadZephyrineRecords(std::move(bytes)));
  };
  return LoadFile(target, path, "Loading Summary...", ReadResultFile, fill);
}

Result<std::string> LoadVornaxilFile(const ImportTarget& target,
                                     const std::string& path,
                                     std::string_view kind) {
  std::string found(kind);
  const auto fill = [&found](Sheet& sheet, std::string bytes) {
    SetupVornaxilSheet(sheet, found);  // what a file shows that tells no kind
    VornaxilFile file = ReadVornaxilFile(std::move(bytes));
    if (file.kind) {
      found = *file.kind;
      SetupVornaxilSheet(sheet, found);
    }
    return Fill(sheet, 2, std::move(file.records));
  };
  if (auto loaded = LoadFile(target, path, "Loading Vornaxil file...", ReadLinesFile, fill);
      !loaded) {
    return loaded.Error();
  }
  return found;
}

Status LoadKestrelixFile(const ImportTarget& target, const std::string& path) {
  const auto fill = [](Sheet& sheet, std::string bytes) {
    LayOutFields(sheet, kKestrelixFields, 2);
    KestrelixFile file = ReadKestrelixFile(std::move(bytes));
    // Not from a list, which is copied: a foreign file may be one long title.
    std::vector<std::string> title(1);
    title[0] = std::move(file.title);
    sheet.SetTextColumn(1, std::move(title));
    return Fill(sheet, 2, std::move(file.records));
  };
  return LoadFile(target, path, "Loading Kestrelix file...", ReadLinesFile, fill);
}

Status LoadSummaryFile(const ImportTarget& target, const std::string& path) {
  const auto fill = [](Sheet& sheet, std::string bytes) {
    SetupSummarySheet(sheet);
    return Fill(sheet, 3, ReadTextRecords(std::move(bytes), kSummaryForm));
  };
  return LoadFile(target, path, "Loading Vistaplot Summary...", ReadResultFile, fill);
}

Status LoadDetailFile(const ImportTarget& target, const std::string& path) {
  const auto fill = [](Sheet& sheet, std::string bytes) {
    SetupDetailSheet(sheet);
    return Fill(sheet, 3, ReadTextRecords(std::move(bytes), kDetailForm));
  };
  return LoadFile(target, path, "Loading Vistaplot Detail...", ReadResultFile, fill);
}

}  // namespace vistaplot
