#include <QPushButton>

#include "controls/simple_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

class ButtonAdapter : public ControlAdapter {
 public:
  ButtonAdapter(Button& button, const AdapterParts& parts)
      : ControlAdapter(button, parts.guard), button_(button), push_(new QPushButton(parts.parent)) {
    SetWidget(push_);
    connect(push_, &QPushButton::clicked, this, [this] { Act([this] { button_.RaiseClick(); }); });
  }

  bool OneLine() const override { return true; }

 protected:
  void CopyCaption() override { push_->setText(QtText(button_.Caption())); }

 private:
  Button& button_;
  QPushButton* push_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeButton(Control& control, const AdapterParts& parts) {
  return std::make_unique<ButtonAdapter>(static_cast<Button&>(control), parts);
}

}  // namespace vistaplot
