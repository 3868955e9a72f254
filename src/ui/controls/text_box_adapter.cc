#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>

#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

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
    return ControlAdapter::eventFilter(watched, event);
  }

 protected:
  void CopyValue() override {
    const QString text = QtText(box_.Text());
    if (line_->text() != text) line_->setText(text);  // keeps the cursor where the user types
  }

 private:
  TextBox& box_;
  QLineEdit* line_;
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

}  // namespace vistaplot
