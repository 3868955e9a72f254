#include <QLabel>

#include "controls/simple_controls.h"
#include "ui/adapters.h"
#include "ui/qt_text.h"

namespace vistaplot {

namespace {

class LabelAdapter : public ControlAdapter {
 public:
  LabelAdapter(Control& label, const AdapterParts& parts)
      : ControlAdapter(label, parts.guard), text_(new QLabel(parts.parent)) {
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    SetWidget(text_);
  }

 protected:
  void CopyCaption() override {
    const QString caption = QtText(Source().Caption());
    text_->setText(caption);
    text_->setToolTip(caption.size() > kShortCaption ? caption : QString());
  }

 private:
  static constexpr int kShortCaption = 40;  ///< characters; longer texts may not fit their place

  QLabel* text_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeLabel(Control& control, const AdapterParts& parts) {
  return std::make_unique<LabelAdapter>(control, parts);
}

}  // namespace vistaplot
