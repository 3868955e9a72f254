#include <QBoxLayout>
#include <QRadioButton>
#include <QResizeEvent>
#include <vector>

#include "controls/list_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

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

std::unique_ptr<ControlAdapter> MakeOptionGroup(Control& control, const AdapterParts& parts) {
  return std::make_unique<OptionGroupAdapter>(static_cast<OptionGroup&>(control), parts);
}

}  // namespace vistaplot
