// The active sheet of the data table as the toolkit's views and assistive tools ask for it: cell by
// cell, nothing is copied. Index (r, c) is the sheet's row r + 1 and column c + 1.
#pragma once

#include <QAbstractTableModel>

#include "table/data_table.h"

namespace vistaplot {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// `table` outlives the model.
  explicit GridModel(const DataTable& table, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;

  /// The text, its alignment, and as accessible text also the cell's headings.
  QVariant data(const QModelIndex& index, int role) const override;

  /// Letters of columns, numbers of rows.
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Takes over another sheet, or an extent that has changed.
  void Refresh();

 private:
  QString SpokenCell(int row, int col) const;

  const DataTable& table_;
  int sheet_ = 0;
  int rows_ = 0;
  int cols_ = 0;
};

}  // namespace vistaplot
