#include "ui/controls/entries_model.h"

#include "ui/controls/qt_text.h"

namespace vistaplot {

int EntriesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : list_.Count();
}

QVariant EntriesModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid() || index.row() >= list_.Count()) return {};
  return QtText(list_.Entries()[static_cast<std::size_t>(index.row())]);
}

void EntriesModel::EntriesChanged() {
  beginResetModel();
  endResetModel();
}

}  // namespace vistaplot
