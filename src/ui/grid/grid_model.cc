#include "ui/grid/grid_model.h"

#include <QStringList>
#include <algorithm>

#include "base/text.h"
#include "ui/controls/widgets.h"
#include "ui/grid/grid_painter.h"

namespace vistaplot {

GridModel::GridModel(const DataTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table) {
  Refresh();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : cols_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int row = index.row() + 1;
  const int col = index.column() + 1;
  if (role == Qt::DisplayRole) return QtText(table_.Active().CellText(row, col));
  if (role == Qt::AccessibleTextRole) return SpokenCell(row, col);
  if (role != Qt::TextAlignmentRole) return {};
  const bool is_number = IsNumberCell(table_.Active().CellText(row, col));
  return QVariant(Qt::AlignVCenter | (is_number ? Qt::AlignRight : Qt::AlignLeft));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  return orientation == Qt::Horizontal ? ColumnLetters(section + 1) : QString::number(section + 1);
}

void GridModel::Refresh() {
  const Sheet& sheet = table_.Active();
  const int rows = std::max(sheet.MaxRow, 0);
  const int cols = std::max(sheet.MaxCol, 0);
  if (sheet_ == table_.ActiveSheet() && rows == rows_ && cols == cols_) return;
  beginResetModel();
  sheet_ = table_.ActiveSheet();
  rows_ = rows;
  cols_ = cols;
  endResetModel();
}

QString GridModel::SpokenCell(int row, int col) const {
  const Sheet& sheet = table_.Active();
  const QString cell = QtText(TrimBlanks(sheet.CellText(row, col)));
  QStringList parts{cell.isEmpty() ? QStringLiteral("empty") : cell};
  const auto add = [&](int heading_row, int heading_col) {
    const QString heading = QtText(TrimBlanks(sheet.CellText(heading_row, heading_col)));
    if (!heading.isEmpty()) parts.push_back(heading);
  };
  if (row > sheet.FixedRows) {
    for (int heading = 1; heading <= sheet.FixedRows; ++heading) add(heading, col);
  }
  if (col > sheet.FixedCols && sheet.FixedCols > 0) add(row, 1);
  parts.push_back(ColumnLetters(col) + QString::number(row));
  return parts.join(QStringLiteral(", "));
}

}  // namespace vistaplot
