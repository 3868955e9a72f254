// A list box's entries as the toolkit's views ask for them: nothing is copied.
#pragma once

#include <QAbstractListModel>

#include "controls/list_controls.h"

namespace vistaplot {

class EntriesModel : public QAbstractListModel {
  Q_OBJECT

 public:
  /// `list` outlives the model.
  explicit EntriesModel(const EntryControl& list, QObject* parent = nullptr)
      : QAbstractListModel(parent), list_(list) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  /// The list has other entries now; views forget where they were.
  void EntriesChanged();

 private:
  const EntryControl& list_;
};

}  // namespace vistaplot
