// What a chart builder hands back beside the view that it filled.
#pragma once

#include <optional>
#include <string>

namespace vistaplot {

struct BuildOutcome {
  bool drawn = false;
  std::string message;           ///< why nothing was drawn; empty when drawn
  std::string on_screen;         ///< the same with the figures, for the place of the chart
  std::string notice;            ///< told beside a chart that was drawn; mostly empty
  int end_day = 0;               ///< the last market day that the build settled on
  std::optional<int> scroll_to;  ///< where the scroll bar goes, also when nothing was drawn
  std::string box_dates;         ///< what lblboxdate says; of point and figure alone
};

/// Nothing was drawn, as `message` says.
inline BuildOutcome RefusedBuild(std::string message, int end_day) {
  BuildOutcome outcome;
  outcome.message = std::move(message);
  outcome.end_day = end_day;
  return outcome;
}

}  // namespace vistaplot
