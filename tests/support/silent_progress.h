// Progress that keeps what it was told and shows nothing, for tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"

namespace vistaplot::test {

class SilentProgress : public Progress {
 public:
  std::vector<std::string> actions;  ///< every text shown, in order
  std::vector<double> percents;      ///< every value of the meter, in order
  bool action_shown = false;
  bool meter_shown = false;

  void ShowAction(std::string_view text) override {
    actions.emplace_back(text);
    action_shown = true;
  }
  void HideAction() override { action_shown = false; }
  void ShowMeter(double percent) override {
    percents.push_back(percent);
    meter_shown = true;
  }
  void HideMeter() override { meter_shown = false; }
};

}  // namespace vistaplot::test
