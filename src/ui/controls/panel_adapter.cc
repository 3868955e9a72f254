#include "controls/simple_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/panel_field.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

class PanelAdapter : public ControlAdapter {
 public:
  PanelAdapter(Panel& panel, const AdapterParts& parts)
      : ControlAdapter(panel, parts.guard), panel_(panel), field_(new PanelField(parts.parent)) {
    SetWidget(field_);
  }

 protected:
  void CopyVisible() override {
    field_->SetBlank(!panel_.Visible());
    // A panel that holds other controls takes them along.
    if (!field_->children().isEmpty()) field_->setVisible(panel_.Visible());
  }
  void CopyCaption() override { field_->SetText(QtText(panel_.Caption())); }
  void CopyValue() override { field_->SetPercent(panel_.Percent()); }

 private:
  Panel& panel_;
  PanelField* field_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakePanel(Control& control, const AdapterParts& parts) {
  return std::make_unique<PanelAdapter>(static_cast<Panel&>(control), parts);
}

}  // namespace vistaplot
