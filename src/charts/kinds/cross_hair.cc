#include "charts/kinds/cross_hair.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

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
  return shown_ ? GoTo(stops_.Beside(stop_, steps)) : Appear();
}

bool CrossHair::Climb(int steps) {
  return shown_ ? GoTo(stops_.Above(stop_, steps)) : Appear();
}

bool CrossHair::GoTo(int stop) {
  if (stop < 0 || stop >= stops_.Count() || (shown_ && stop == stop_)) return false;
  stop_ = stop;
  shown_ = true;
  return true;
}

StopList StopList::OfRows(int count) {
  StopList list;
  list.count_ = count;
  return list;
}

StopList::StopList(std::vector<Stop> stops, bool stacked)
    : stops_(std::move(stops)), count_(static_cast<int>(stops_.size())), stacked_(stacked) {
  const auto before = [stacked](const Stop& a, const Stop& b) {
    if (a.position != b.position || !stacked) return a.position < b.position;
    return a.value < b.value;
  };
  if (std::is_sorted(stops_.begin(), stops_.end(), before)) return;  // a million cells are
  std::stable_sort(stops_.begin(), stops_.end(), before);
}

Stop StopList::At(int stop) const {
  if (stops_.empty()) return {.position = stop + 1.0, .row = stop + 1};
  return stops_[static_cast<std::size_t>(stop)];
}

int StopList::Find(int row, int column) const {
  if (stops_.empty()) return row >= 1 && row <= count_ ? row - 1 : count_;
  const auto found = std::find_if(stops_.begin(), stops_.end(), [&](const Stop& stop) {
    return stop.row == row && stop.column == column;
  });
  return static_cast<int>(found - stops_.begin());
}

int StopList::FirstAt(double position) const {
  const auto found =
      std::lower_bound(stops_.begin(), stops_.end(), position, [](const Stop& stop, double wanted) {
        return stop.position < wanted;
      });
  return static_cast<int>(found - stops_.begin());
}

int StopList::Nearest(double position, double value) const {
  if (count_ == 0 || !std::isfinite(position)) return -1;
  if (stops_.empty()) {
    return static_cast<int>(std::lround(std::clamp(position, 1.0, 1.0 * count_))) - 1;
  }
  const int after = FirstAt(position);
  int nearest = std::max(after - 1, 0);
  if (after < count_ &&
      (after == 0 || At(after).position - position < position - At(after - 1).position)) {
    nearest = after;
  }
  if (!stacked_) return nearest;
  const double column = At(nearest).position;
  nearest = FirstAt(column);
  for (int stop = nearest + 1; stop < count_ && At(stop).position == column; ++stop) {
    if (std::abs(At(stop).value - value) < std::abs(At(nearest).value - value)) nearest = stop;
  }
  return nearest;
}

int StopList::Beside(int stop, int steps) const {
  if (!stacked_) return std::clamp(stop + steps, 0, std::max(count_ - 1, 0));
  const double value = At(stop).value;
  for (; steps > 0; --steps) {
    int next = stop;
    while (next < count_ && At(next).position == At(stop).position) ++next;
    if (next == count_) break;
    stop = next;
  }
  for (; steps < 0; ++steps) {
    const int first = FirstAt(At(stop).position);
    if (first == 0) break;
    stop = first - 1;
  }
  return Nearest(At(stop).position, value);
}

int StopList::Above(int stop, int steps) const {
  if (!stacked_) return stop;
  const int step = steps > 0 ? 1 : -1;
  for (; steps != 0; steps -= step) {
    const int next = stop + step;
    if (next < 0 || next >= count_ || At(next).position != At(stop).position) break;
    stop = next;
  }
  return stop;
}

}  // namespace vistaplot
