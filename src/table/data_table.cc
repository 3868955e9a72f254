#include "table/data_table.h"

#include <algorithm>
#include <cassert>

namespace vistaplot {

DataTable::DataTable() {
  SetSheetCount(1);
}

int DataTable::SheetCount() const {
  return static_cast<int>(sheets_.size());
}

void DataTable::SetSheetCount(int count) {
  const auto wanted = static_cast<std::size_t>(std::max(count, 1));
  if (wanted == sheets_.size()) return;
  if (wanted < sheets_.size()) sheets_.resize(wanted);
  while (sheets_.size() < wanted) {
    auto sheet = std::make_unique<Sheet>();
    sheet->SheetName = "Sheet" + std::to_string(sheets_.size() + 1);
    sheets_.push_back(std::move(sheet));
  }
  const bool is_active_gone = active_ > SheetCount();
  if (is_active_gone) active_ = SheetCount();
  NotifySheets();
  if (is_active_gone && observer_ != nullptr) observer_->ActiveSheetChanged();
}

void DataTable::SetActiveSheet(int number) {
  if (number < 1 || number > SheetCount() || number == active_) return;
  active_ = number;
  if (observer_ != nullptr) observer_->ActiveSheetChanged();
}

Sheet& DataTable::SheetAt(int number) {
  assert(number >= 1 && number <= SheetCount());
  return *sheets_[static_cast<std::size_t>(number) - 1];
}

const Sheet& DataTable::SheetAt(int number) const {
  assert(number >= 1 && number <= SheetCount());
  return *sheets_[static_cast<std::size_t>(number) - 1];
}

void DataTable::Reset(int spare_sheets) {
  SetSheetCount(1);
  SheetAt(1) = Sheet();
  SheetAt(1).SheetName = "Sheet1";
  SetSheetCount(1 + spare_sheets);
  NotifySheets();
  NotifyContent(1);
}

void DataTable::NotifyContent(int number) {
  if (observer_ != nullptr) observer_->ContentChanged(number);
}

void DataTable::NotifySheets() {
  if (observer_ != nullptr) observer_->SheetsChanged();
}

}  // namespace vistaplot
