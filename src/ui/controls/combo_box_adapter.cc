#include <QComboBox>
#include <QStringList>
#include <QWheelEvent>

#include "controls/list_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

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

}  // namespace

std::unique_ptr<ControlAdapter> MakeComboBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<ComboBoxAdapter>(static_cast<ComboBox&>(control), parts);
}

}  // namespace vistaplot
