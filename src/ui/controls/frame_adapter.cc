#include <QGroupBox>

#include "controls/simple_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

class FrameAdapter : public ControlAdapter {
 public:
  FrameAdapter(Control& frame, const AdapterParts& parts)
      : ControlAdapter(frame, parts.guard), box_(new QGroupBox(parts.parent)) {
    SetWidget(box_);
  }

 protected:
  void CopyCaption() override { box_->setTitle(QtText(Source().Caption())); }

 private:
  QGroupBox* box_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeFrame(Control& control, const AdapterParts& parts) {
  return std::make_unique<FrameAdapter>(control, parts);
}

}  // namespace vistaplot
