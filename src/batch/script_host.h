// Where forms are shown when a script plays the user: nowhere.
#pragma once

#include <functional>
#include <vector>

#include "controls/form.h"
#include "controls/form_host.h"

namespace vistaplot {

class ScriptHost : public FormHost {
 public:
  explicit ScriptHost(const DisplaySize& display) : display_(display) {}

  /// Works on a modal form until it is no longer shown; set before a script runs.
  std::function<void(Form& form)> on_modal;

  /// The modal form that is open, the last one opened; null when there is none.
  Form* Modal() const { return modal_.empty() ? nullptr : modal_.back(); }

  DisplaySize Display() const override { return display_; }
  void FormShown(Form& form) override { front_ = &form; }
  void FormHidden(Form& form) override {
    if (front_ == &form) front_ = nullptr;
  }
  void FormRepaint(Form& /*form*/) override {}
  void PointerChanged(Form& /*form*/) override {}
  void RunModal(Form& form) override;
  Form* FrontScreen() const override { return front_; }
  void Arrange(WindowArrangement /*arrangement*/) override {}
  void StepScreen(bool /*forward*/) override {}
  void SwitchFullScreen() override {}
  void ShowKeys() override {}

 private:
  DisplaySize display_;
  Form* front_ = nullptr;     ///< the form shown last
  std::vector<Form*> modal_;  ///< innermost last
};

}  // namespace vistaplot
