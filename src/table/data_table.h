// The workbook of numbered sheets that holds whatever was loaded last. Owned by the program; every
// load rebuilds what it writes. Sheets count from 1 and the last one is kept as an empty spare by
// the loaders.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "table/sheet.h"

namespace vistaplot {

/// Where a load of prices puts them, and where the summary of what was loaded stands.
inline constexpr int kPriceSheet = 1;
inline constexpr int kSummarySheet = 2;

/// The most columns that a price sheet holds: dates and 255 issues.
inline constexpr int kMaxColumns = 256;
inline constexpr int kMaxIssues = 255;

/// Told when what a view shows may have changed.
class TableObserver {
 public:
  virtual ~TableObserver() = default;
  virtual void ActiveSheetChanged() = 0;       ///< another sheet is shown
  virtual void SheetsChanged() = 0;            ///< sheets came, went or were renamed
  virtual void ContentChanged(int sheet) = 0;  ///< cells, extent, widths or selection of a sheet
};

class DataTable {
 public:
  DataTable();  ///< one empty sheet named "Sheet1"

  int SheetCount() const;
  /// Lower removes sheets at the end, higher appends empty ones ("Sheet2", ...); at least 1. An
  /// active sheet that is removed gives way to the last one.
  void SetSheetCount(int count);

  int ActiveSheet() const { return active_; }
  void SetActiveSheet(int number);  ///< 1 to SheetCount; others are ignored

  Sheet& Active() { return SheetAt(active_); }
  const Sheet& Active() const { return SheetAt(active_); }

  /// Sheet `number`, 1 to SheetCount. References stay valid until the sheet is removed.
  Sheet& SheetAt(int number);
  const Sheet& SheetAt(int number) const;

  /// One cleared sheet named "Sheet1", active, and `spare_sheets` empty ones behind it.
  void Reset(int spare_sheets);

  /// SortToggle[c] of summary column c (0 to 14): +1 or -1, the direction of the next click sort.
  std::vector<int> SortToggle = std::vector<int>(15, 0);

  /// Whoever writes a sheet says so when done; views repaint then, not at every cell.
  void NotifyContent(int number);
  void NotifySheets();

  void SetObserver(TableObserver* observer) { observer_ = observer; }

 private:
  std::vector<std::unique_ptr<Sheet>> sheets_;
  int active_ = 1;
  TableObserver* observer_ = nullptr;
};

}  // namespace vistaplot
