// A form host without windows: remembers what was shown last.
#pragma once

#include <functional>

#include "controls/form.h"
#include "controls/form_host.h"

namespace vistaplot::test {

class SilentHost : public FormHost {
 public:
  DisplaySize display;                       ///< twips; the design size unless a test sets it
  Form* front = nullptr;                     ///< the form shown last
  std::function<void(Form& form)> on_modal;  ///< plays the user of a modal form
  bool stop_wanted = false;                  ///< the user pressed Esc

  DisplaySize Display() const override { return display; }
  void FormShown(Form& form) override { front = &form; }
  void FormHidden(Form& form) override {
    if (front == &form) front = nullptr;
  }
  void FormRepaint(Form& /*form*/) override {}
  void PointerChanged(Form& /*form*/) override {}
  void RunModal(Form& form) override {
    if (on_modal) on_modal(form);
  }
  Form* FrontScreen() const override { return front; }
  void Arrange(WindowArrangement /*arrangement*/) override {}
  void StepScreen(bool /*forward*/) override {}
  void SwitchFullScreen() override {}
  bool StopWanted() override { return stop_wanted; }
  void ShowKeys() override {}
  void ShowManual() override {}
};

}  // namespace vistaplot::test
