#include "controls/simple_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/caption_label.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

class LabelAdapter : public ControlAdapter {
 public:
  LabelAdapter(Control& label, const AdapterParts& parts)
      : ControlAdapter(label, parts.guard), text_(new CaptionLabel(parts.parent)) {
    SetWidget(text_);
  }

 protected:
  void CopyCaption() override { text_->SetCaption(QtText(Source().Caption())); }

 private:
  CaptionLabel* text_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeLabel(Control& control, const AdapterParts& parts) {
  return std::make_unique<LabelAdapter>(control, parts);
}

}  // namespace vistaplot
