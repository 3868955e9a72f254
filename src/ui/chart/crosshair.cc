#include "ui/chart/crosshair.h"

#include <algorithm>
#include <cmath>

#include "charts/layout/layout_parts.h"

namespace vistaplot {

void CrossHair::Follow(const ChartView& view) {
  const int row = Row();
  stops_.clear();
  const std::vector<DrawnSeries> series = SeriesOf(view);
  const bool by_value = !series.empty() && series.front().x_column > 0;
  if (by_value) {
    for (int r = 1; r <= view.rowcount(); ++r) {
      const auto drawn = std::find_if(series.begin(), series.end(), [&](const DrawnSeries& s) {
        return view.HasPoint(r, s.x_column) && view.HasPoint(r, s.y_column);
      });
      if (drawn != series.end()) stops_.push_back({view.DataAt(r, drawn->x_column), r});
    }
    std::stable_sort(stops_.begin(), stops_.end(), [](const Stop& a, const Stop& b) {
      return a.position < b.position;
    });
  }
  count_ = series.empty() ? 0 : by_value ? static_cast<int>(stops_.size()) : view.rowcount();
  shown_ = shown_ && count_ > 0;
  stop_ = std::clamp(StopOfRow(row), 0, std::max(count_ - 1, 0));
}

int CrossHair::Row() const {
  return StopAt(stop_).row;
}

double CrossHair::Position() const {
  return StopAt(stop_).position;
}

bool CrossHair::SnapTo(double position) {
  if (count_ == 0 || !std::isfinite(position)) return false;
  if (stops_.empty()) {
    return GoTo(static_cast<int>(std::lround(std::clamp(position, 1.0, 1.0 * count_))) - 1);
  }
  const auto after =
      std::lower_bound(stops_.begin(), stops_.end(), position, [](const Stop& stop, double wanted) {
        return stop.position < wanted;
      });
  if (after == stops_.begin()) return GoTo(0);
  const auto before = after - 1;
  const bool nearer_before =
      after == stops_.end() || position - before->position <= after->position - position;
  return GoTo(static_cast<int>((nearer_before ? before : after) - stops_.begin()));
}

bool CrossHair::GoToRow(int row) {
  return GoTo(StopOfRow(row));
}

bool CrossHair::Step(int rows) {
  return GoTo(shown_ ? std::clamp(stop_ + rows, 0, std::max(count_ - 1, 0)) : count_ - 1);
}

bool CrossHair::GoTo(int stop) {
  if (stop < 0 || stop >= count_ || (shown_ && stop == stop_)) return false;
  stop_ = stop;
  shown_ = true;
  return true;
}

int CrossHair::StopOfRow(int row) const {
  if (stops_.empty()) return row - 1;
  const auto found =
      std::find_if(stops_.begin(), stops_.end(), [&](const Stop& stop) { return stop.row == row; });
  return static_cast<int>(found - stops_.begin());
}

CrossHair::Stop CrossHair::StopAt(int stop) const {
  if (stops_.empty()) return {stop + 1.0, stop + 1};
  return stops_[static_cast<std::size_t>(stop)];
}

}  // namespace vistaplot
