// Labels, buttons, frames, panels and timers: controls with a caption and at most a click.

#include <QPushButton>
#include <QTimer>

#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/widgets.h"

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

class FrameAdapter : public ControlAdapter {
 public:
  FrameAdapter(Control& frame, const AdapterParts& parts)
      : ControlAdapter(frame, parts.guard), box_(new TitledFrame(parts.parent)) {
    SetWidget(box_);
  }

 protected:
  void CopyCaption() override { box_->SetTitle(QtText(Source().Caption())); }

 private:
  TitledFrame* box_;
};

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

std::unique_ptr<ControlAdapter> MakeLabel(Control& control, const AdapterParts& parts) {
  return std::make_unique<LabelAdapter>(control, parts);
}

std::unique_ptr<ControlAdapter> MakeButton(Control& control, const AdapterParts& parts) {
  return std::make_unique<ButtonAdapter>(static_cast<Button&>(control), parts);
}

std::unique_ptr<ControlAdapter> MakeFrame(Control& control, const AdapterParts& parts) {
  return std::make_unique<FrameAdapter>(control, parts);
}

std::unique_ptr<ControlAdapter> MakePanel(Control& control, const AdapterParts& parts) {
  return std::make_unique<PanelAdapter>(static_cast<Panel&>(control), parts);
}

std::unique_ptr<ControlAdapter> MakeTimer(Control& control, const AdapterParts& parts) {
  return std::make_unique<TimerAdapter>(static_cast<Timer&>(control), parts);
}

}  // namespace vistaplot
