#include "charts/kinds/line_hits.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistaplot {

namespace {

struct Nearest {
  ChartHit hit;
  double distance;
};

void Offer(Nearest& best, ChartHit hit, double distance) {
  if (distance < best.distance) best = {hit, distance};
}

double Distance(PicturePoint a, PicturePoint b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

// From `at` to the stretch between two points of a line.
double StretchDistance(PicturePoint from, PicturePoint to, PicturePoint at) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double length = dx * dx + dy * dy;
  if (length <= 0.0) return Distance(from, at);
  const double part = ((at.x - from.x) * dx + (at.y - from.y) * dy) / length;
  const double inside = std::clamp(part, 0.0, 1.0);
  return Distance({from.x + inside * dx, from.y + inside * dy}, at);
}

class SeriesSearch {
 public:
  SeriesSearch(const ChartView& view, const PlotScale& scale, const DrawnSeries& series)
      : view_(view), scale_(scale), series_(series) {}

  bool Has(int row) const {
    if (row < 1 || row > view_.rowcount() || !view_.HasPoint(row, series_.y_column)) return false;
    return series_.x_column == 0 || view_.HasPoint(row, series_.x_column);
  }

  // Rows whose points, or whose line to the next point, may lie within reach of x.
  std::pair<int, int> Rows(double x, double reach) const {
    const int rows = view_.rowcount();
    if (series_.x_column > 0 || rows < 2) return {1, rows};
    const double row_width = scale_.X(2.0) - scale_.X(1.0);
    const double first = std::floor((x - reach - scale_.X(1.0)) / row_width);
    const double last = std::ceil((x + reach - scale_.X(1.0)) / row_width) + 1.0;
    return {static_cast<int>(std::clamp(first, 1.0, 1.0 * rows)),
            static_cast<int>(std::clamp(last + 1.0, 1.0, 1.0 * rows))};
  }

  void Search(PicturePoint at, double reach, Nearest& best) const {
    const bool line = SettingsOf(view_, series_.settings).showline;
    const auto [first, last] = Rows(at.x, reach);
    for (int row = first; row <= last; ++row) {
      if (!Has(row)) continue;
      const PicturePoint point = Place(row);
      Offer(best, {series_.number, row}, Distance(point, at));
      if (!line || row == last || !Has(row + 1)) continue;
      const PicturePoint next = Place(row + 1);
      const bool first_is_nearer = Distance(point, at) <= Distance(next, at);
      Offer(best,
            {series_.number, first_is_nearer ? row : row + 1},
            StretchDistance(point, next, at));
    }
  }

 private:
  PicturePoint Place(int row) const {
    const double position = series_.x_column > 0 ? view_.DataAt(row, series_.x_column) : row;
    return {scale_.X(position), scale_.Y(view_.DataAt(row, series_.y_column))};
  }

  const ChartView& view_;
  const PlotScale& scale_;
  const DrawnSeries& series_;
};

}  // namespace

std::optional<ChartHit> FindOnLines(const ChartView& view,
                                    const std::vector<DrawnSeries>& all,
                                    const PlotScale& scale,
                                    PicturePoint at,
                                    double reach) {
  Nearest best{{}, std::nextafter(reach, reach + 1.0)};
  for (const DrawnSeries& series : all) {
    SeriesSearch(view, scale, series).Search(at, reach, best);
  }
  if (best.hit.point == 0) return std::nullopt;
  return best.hit;
}

void LineThinner::Add(PicturePoint point) {
  const int column = static_cast<int>(point.x * detail_);
  if (count_ == 0 || column != column_) {
    FlushColumn();
    column_ = column;
    first_ = low_ = high_ = {point, 0};
    count_ = 1;
    return;
  }
  last_ = {point, count_++};
  if (point.y > low_.point.y) low_ = last_;
  if (point.y < high_.point.y) high_ = last_;
}

void LineThinner::Break() {
  FlushColumn();
  if (piece_.size() == 1) alone_.push_back(piece_.front());
  if (piece_.size() > 1) pieces_.push_back(std::move(piece_));
  piece_.clear();
}

void LineThinner::FlushColumn() {
  if (count_ == 0) return;
  piece_.push_back(first_.point);
  if (count_ < 3) {
    if (count_ == 2) piece_.push_back(last_.point);
    count_ = 0;
    return;
  }
  Candidate early = low_;
  Candidate late = high_;
  if (late.order < early.order) std::swap(early, late);
  int order = first_.order;
  for (const Candidate& candidate : {early, late, last_}) {
    if (candidate.order <= order) continue;
    order = candidate.order;
    piece_.push_back(candidate.point);
  }
  count_ = 0;
}

}  // namespace vistaplot
