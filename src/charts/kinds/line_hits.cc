#include "charts/kinds/line_hits.h"

#include <algorithm>
#include <cmath>

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

}  // namespace vistaplot
