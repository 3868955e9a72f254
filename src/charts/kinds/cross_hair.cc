#include "charts/kinds/cross_hair.h"

#include <algorithm>

#include "charts/kinds/kind.h"

namespace vistaplot {

void CrossHair::Follow(const ChartView& view) {
  const Stop place = Place();
  stops_ = KindOf(view).Stops(view);
  shown_ = shown_ && stops_.Count() > 0;
  stop_ = std::clamp(stops_.Find(place.row, place.column), 0, std::max(stops_.Count() - 1, 0));
}

bool CrossHair::SnapTo(double position, double value) {
  return GoTo(stops_.Nearest(position, value));
}

bool CrossHair::GoToRow(int row, int column) {
  return GoTo(stops_.Find(row, column));
}

bool CrossHair::Step(int steps) {
  return GoTo(shown_ ? stops_.Beside(stop_, steps) : stops_.Count() - 1);
}

bool CrossHair::Climb(int steps) {
  return GoTo(shown_ ? stops_.Above(stop_, steps) : stops_.Count() - 1);
}

bool CrossHair::GoTo(int stop) {
  if (stop < 0 || stop >= stops_.Count() || (shown_ && stop == stop_)) return false;
  stop_ = stop;
  shown_ = true;
  return true;
}

}  // namespace vistaplot
