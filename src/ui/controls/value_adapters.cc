// Text boxes, check boxes and scroll bars: controls that hold a value.

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr int kDarkest = 128;  ///< lightness below which a ground counts as dark
constexpr QColor kWrongOnLight(0xB3, 0x1D, 0x1D);
constexpr QColor kWrongOnDark(0xFF, 0x8A, 0x80);

/// The user is still at work in the box while only its window or a pop-up takes the keyboard.
bool LeavesBox(const QFocusEvent& event) {
  return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

class TextBoxAdapter : public ControlAdapter {
 public:
  TextBoxAdapter(TextBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard), box_(box), line_(new QLineEdit(parts.parent)) {
    SetWidget(line_);
    line_->installEventFilter(this);
    connect(line_, &QLineEdit::textEdited, this, [this](const QString& text) {
      Act([this, &text] { box_.SetText(PlainUtf8(text)); });
    });
  }

  bool OneLine() const override { return true; }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusOut && LeavesBox(*static_cast<QFocusEvent*>(event))) {
      Act([this] { box_.RaiseLostFocus(); });
    }
    if (event->type() == QEvent::KeyPress && list_ != nullptr &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
      list_->setFocus(Qt::TabFocusReason);
      return true;
    }
    return ControlAdapter::eventFilter(watched, event);
  }

  void JoinList(QWidget& list) override { list_ = &list; }

 protected:
  void CopyValue() override {
    const QString text = QtText(box_.Text());
    if (line_->text() != text) line_->setText(text);  // keeps the cursor where the user types
    ShowFault(QtText(box_.Fault()));
  }

 private:
  void ShowFault(const QString& fault) {
    if (line_->toolTip() == fault) return;
    line_->setToolTip(fault);
    line_->setAccessibleDescription(fault);
    QPalette colors;
    if (!fault.isEmpty()) {
      const bool dark = colors.color(QPalette::Base).lightness() < kDarkest;
      colors.setColor(QPalette::Text, dark ? kWrongOnDark : kWrongOnLight);
    }
    line_->setPalette(colors);
  }

  TextBox& box_;
  QLineEdit* line_;
  QWidget* list_ = nullptr;  ///< that Down leads into
};

class CheckBoxAdapter : public ControlAdapter {
 public:
  CheckBoxAdapter(CheckBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard), box_(box), tick_(new SpreadCheckBox(parts.parent)) {
    SetWidget(tick_);
    connect(tick_, &QCheckBox::clicked, this, [this](bool checked) {
      Act([this, checked] { box_.SetChecked(checked); });
    });
  }

  bool OneLine() const override { return true; }

 protected:
  void CopyCaption() override {
    tick_->SetCaption(QtText(box_.Caption()));
    tick_->setAccessibleName(SpokenText(box_.Caption()));
  }
  void CopyValue() override { tick_->setChecked(box_.Checked()); }

 private:
  CheckBox& box_;
  SpreadCheckBox* tick_;
};

Qt::Orientation OrientationOf(const Control& control) {
  const Place& place = control.Where();
  return place.Height.value_or(0.0F) > place.Width.value_or(0.0F) ? Qt::Vertical : Qt::Horizontal;
}

class ScrollBarAdapter : public ControlAdapter {
 public:
  ScrollBarAdapter(ScrollBar& bar, const AdapterParts& parts)
      : ControlAdapter(bar, parts.guard),
        bar_(bar),
        slider_(new PlainScrollBar(OrientationOf(bar), parts.parent)) {
    slider_->setFocusPolicy(Qt::StrongFocus);
    SetWidget(slider_);
    connect(slider_, &QScrollBar::valueChanged, this, [this](int value) {
      Act([this, value] { bar_.SetValue(value); });
    });
  }

  bool OneLine() const override { return slider_->orientation() == Qt::Horizontal; }

 protected:
  void CopyValue() override {
    slider_->setRange(bar_.Min(), bar_.Max());
    slider_->setPageStep(std::max(1, (bar_.Max() - bar_.Min()) / kPages));
    slider_->setValue(bar_.Value());
  }

 private:
  static constexpr int kPages = 20;  ///< clicks beside the slider that lead from end to end

  ScrollBar& bar_;
  PlainScrollBar* slider_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeTextBox(Control& control, const AdapterParts& parts) {
  auto& box = static_cast<TextBox&>(control);
  if (parts.roots != nullptr && box.content == TextContent::kFolder) {
    return MakeFolderBox(box, parts);
  }
  if (parts.roots != nullptr && box.content == TextContent::kDrive) return MakeDriveBox(box, parts);
  return std::make_unique<TextBoxAdapter>(box, parts);
}

std::unique_ptr<ControlAdapter> MakeCheckBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<CheckBoxAdapter>(static_cast<CheckBox&>(control), parts);
}

std::unique_ptr<ControlAdapter> MakeScrollBar(Control& control, const AdapterParts& parts) {
  return std::make_unique<ScrollBarAdapter>(static_cast<ScrollBar&>(control), parts);
}

}  // namespace vistaplot
