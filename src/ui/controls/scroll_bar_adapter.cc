#include <algorithm>

#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/plain_scroll_bar.h"

namespace vistaplot {

namespace {

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

std::unique_ptr<ControlAdapter> MakeScrollBar(Control& control, const AdapterParts& parts) {
  return std::make_unique<ScrollBarAdapter>(static_cast<ScrollBar&>(control), parts);
}

}  // namespace vistaplot
