#include <QFontDatabase>
#include <QItemSelectionModel>
#include <QListView>
#include <QSignalBlocker>
#include <vector>

#include "controls/list_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/entries_model.h"
#include "ui/controls/list_focus.h"

namespace vistaplot {

namespace {

/// The rows as few ranges, so that "all of ten thousand" is one.
QItemSelection RangesOf(const std::vector<int>& rows, const EntriesModel& model) {
  QItemSelection ranges;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t last = first;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    ranges.select(model.index(rows[first]), model.index(rows[last]));
    first = last + 1;
  }
  return ranges;
}

std::vector<int> RowsOf(const QItemSelection& ranges, int count) {
  std::vector<bool> selected(static_cast<std::size_t>(count), false);
  for (const QItemSelectionRange& range : ranges) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      selected[static_cast<std::size_t>(row)] = true;
    }
  }
  std::vector<int> rows;
  for (int row = 0; row < count; ++row) {
    if (selected[static_cast<std::size_t>(row)]) rows.push_back(row);
  }
  return rows;
}

class ListBoxAdapter : public ControlAdapter {
 public:
  ListBoxAdapter(ListBox& list, const AdapterParts& parts)
      : ControlAdapter(list, parts.guard),
        list_(list),
        view_(new QListView(parts.parent)),
        model_(list) {
    view_->setUniformItemSizes(true);
    view_->setModel(&model_);
    view_->setSelectionMode(list.multi_select ? QAbstractItemView::ExtendedSelection
                                              : QAbstractItemView::SingleSelection);
    if (list.fixed_pitch) view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    FrameFocus(*view_);
    SetWidget(view_);
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
      UserSelected();
    });
  }

  bool Follows() const override { return true; }

 protected:
  void CopyEntries() override {
    const QSignalBlocker blocker(view_->selectionModel());
    model_.EntriesChanged();
    CopyValue();
  }

  void CopyValue() override {
    const QItemSelectionModel& shown = *view_->selectionModel();
    const std::vector<int> wanted = list_.SelectedPositions();
    const bool same = RowsOf(shown.selection(), list_.Count()) == wanted;
    // The view keeps its own anchor and current row while the user extends a selection.
    if (same && user_selects_) return;
    const QSignalBlocker blocker(view_->selectionModel());
    if (!same) {
      view_->selectionModel()->select(RangesOf(wanted, model_),
                                      QItemSelectionModel::ClearAndSelect);
    }
    const QModelIndex current = model_.index(list_.ListIndex());
    if (current.isValid()) {
      view_->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
      view_->scrollTo(current);
    }
    view_->viewport()->update();
  }

 private:
  void UserSelected() {
    const std::vector<int> rows = RowsOf(view_->selectionModel()->selection(), list_.Count());
    user_selects_ = true;
    Act([this, &rows] {
      if (list_.multi_select) {
        list_.Select(rows, view_->currentIndex().row());
      } else {
        list_.SetListIndex(rows.empty() ? -1 : rows.front());
      }
    });
    user_selects_ = false;
  }

  ListBox& list_;
  QListView* view_;
  EntriesModel model_;
  bool user_selects_ = false;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeListBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<ListBoxAdapter>(static_cast<ListBox&>(control), parts);
}

}  // namespace vistaplot
