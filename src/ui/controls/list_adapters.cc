// Combo boxes, list boxes and option groups: controls with entries.

#include <QAbstractListModel>
#include <QBoxLayout>
#include <QComboBox>
#include <QFontDatabase>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QRadioButton>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <QStringList>
#include <QWheelEvent>
#include <vector>

#include "controls/list_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/list_focus.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

/// A list box's entries as the toolkit's views ask for them: nothing is copied.
class EntriesModel : public QAbstractListModel {
 public:
  explicit EntriesModel(const EntryControl& list) : list_(list) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : list_.Count();
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= list_.Count()) return {};
    return QtText(list_.Entries()[static_cast<std::size_t>(index.row())]);
  }

  /// The list has other entries now; views forget where they were.
  void EntriesChanged() {
    beginResetModel();
    endResetModel();
  }

 private:
  const EntryControl& list_;
};

/// Changes by intent alone: a choice can drop all that is loaded, a wheel on its way over the
/// screen must not make one. The open list scrolls as usual.
class SteadyComboBox : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class ComboBoxAdapter : public ControlAdapter {
 public:
  ComboBoxAdapter(ComboBox& list, const AdapterParts& parts)
      : ControlAdapter(list, parts.guard), list_(list), combo_(new SteadyComboBox(parts.parent)) {
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo_->setMaxVisibleItems(kRowsShown);
    SetWidget(combo_);
    connect(combo_, &QComboBox::activated, this, [this](int position) {
      Act([this, position] { list_.SetListIndex(position); });
    });
  }

  bool OneLine() const override { return true; }

 protected:
  void CopyEntries() override {
    QStringList texts;
    for (const std::string& entry : list_.Entries()) texts += QtText(entry);
    combo_->clear();
    combo_->addItems(texts);
    CopyValue();
  }

  void CopyValue() override { combo_->setCurrentIndex(list_.ListIndex()); }

 private:
  static constexpr int kRowsShown = 20;

  ComboBox& list_;
  QComboBox* combo_;
};

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
    connect(view_, &QListView::doubleClicked, this, [this](const QModelIndex& entry) {
      TakeEntry(entry);
    });
    view_->installEventFilter(this);
  }

  bool Follows() const override { return true; }

  // Not by the view's own signal: on some desktops a single click raises that.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto* key = static_cast<QKeyEvent*>(event);
      const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
      if (plain && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
        return TakeEntry(view_->currentIndex());
      }
    }
    return ControlAdapter::eventFilter(watched, event);
  }

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
  /// A double click on an entry, or Enter there; false where that means nothing.
  bool TakeEntry(const QModelIndex& entry) {
    if (!entry.isValid() || !list_.DblClick) return false;
    Act([this] { list_.DblClick(); });
    return true;
  }

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

/// The group's rectangle: its buttons stand below each other, or side by side where it is too low.
class OptionRows : public QWidget {
 public:
  explicit OptionRows(QWidget* parent)
      : QWidget(parent), rows_(new QBoxLayout(QBoxLayout::TopToBottom, this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
  }

  void Put(QRadioButton* button) { rows_->addWidget(button); }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    int needed = 0;
    for (int i = 0; i < rows_->count(); ++i) needed += rows_->itemAt(i)->minimumSize().height();
    const bool low = event->size().height() < needed && event->size().width() > needed;
    rows_->setDirection(low ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  }

 private:
  QBoxLayout* rows_;
};

class OptionGroupAdapter : public ControlAdapter {
 public:
  OptionGroupAdapter(OptionGroup& group, const AdapterParts& parts)
      : ControlAdapter(group, parts.guard), group_(group), rows_(new OptionRows(parts.parent)) {
    SetWidget(rows_);
  }

  std::vector<QWidget*> TabStops() const override { return {buttons_.begin(), buttons_.end()}; }

 protected:
  void CopyEntries() override {
    qDeleteAll(buttons_);
    buttons_.clear();
    for (int i = 0; i < group_.Count(); ++i) AddButton(i);
    CopyValue();
  }

  void CopyValue() override {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
      const bool chosen = static_cast<int>(i) == group_.ListIndex();
      buttons_[i]->setAutoExclusive(false);  // else the last chosen one cannot be cleared
      buttons_[i]->setChecked(chosen);
      buttons_[i]->setAutoExclusive(true);
    }
  }

 private:
  void AddButton(int position) {
    const std::string& caption = group_.Entries()[static_cast<std::size_t>(position)];
    auto* button = new QRadioButton(QtText(caption), rows_);
    buttons_.push_back(button);
    rows_->Put(button);
    connect(button, &QRadioButton::clicked, this, [this, position] {
      Act([this, position] { group_.SetListIndex(position); });
    });
  }

  OptionGroup& group_;
  OptionRows* rows_;
  std::vector<QRadioButton*> buttons_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeComboBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<ComboBoxAdapter>(static_cast<ComboBox&>(control), parts);
}

std::unique_ptr<ControlAdapter> MakeListBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<ListBoxAdapter>(static_cast<ListBox&>(control), parts);
}

std::unique_ptr<ControlAdapter> MakeOptionGroup(Control& control, const AdapterParts& parts) {
  return std::make_unique<OptionGroupAdapter>(static_cast<OptionGroup&>(control), parts);
}

}  // namespace vistaplot
