#include <QTimer>

#include "controls/simple_controls.h"
#include "ui/controls/adapters.h"

namespace vistaplot {

namespace {

class TimerAdapter : public ControlAdapter {
 public:
  TimerAdapter(Timer& timer, const AdapterParts& parts)
      : ControlAdapter(timer, parts.guard), timer_(timer) {
    connect(&clock_, &QTimer::timeout, this, [this] {
      Act([this] {
        if (timer_.Tick) timer_.Tick();
      });
    });
  }

 protected:
  void CopyEnabled() override {
    if (timer_.Enabled() && timer_.interval > 0) {
      clock_.start(timer_.interval);
    } else {
      clock_.stop();
    }
  }

 private:
  Timer& timer_;
  QTimer clock_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeTimer(Control& control, const AdapterParts& parts) {
  return std::make_unique<TimerAdapter>(static_cast<Timer&>(control), parts);
}

}  // namespace vistaplot
