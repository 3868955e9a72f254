#include <QCheckBox>

#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

class CheckBoxAdapter : public ControlAdapter {
 public:
  CheckBoxAdapter(CheckBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard), box_(box), tick_(new QCheckBox(parts.parent)) {
    SetWidget(tick_);
    connect(tick_, &QCheckBox::clicked, this, [this](bool checked) {
      Act([this, checked] { box_.SetChecked(checked); });
    });
  }

  bool OneLine() const override { return true; }

 protected:
  void CopyCaption() override { tick_->setText(QtText(box_.Caption())); }
  void CopyValue() override { tick_->setChecked(box_.Checked()); }

 private:
  CheckBox& box_;
  QCheckBox* tick_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeCheckBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<CheckBoxAdapter>(static_cast<CheckBox&>(control), parts);
}

}  // namespace vistaplot
