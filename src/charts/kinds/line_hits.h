// Which point of curves or markers lies under the pointer.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "charts/kinds/draw_context.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// The point of `all` nearest to `at`, at most `reach` units away; between two points of a drawn
/// line the nearer one when the line itself passes within reach.
std::optional<ChartHit> FindOnLines(const ChartView& view,
                                    const std::vector<DrawnSeries>& all,
                                    const PlotScale& scale,
                                    PicturePoint at,
                                    double reach);

// Keeps of a curve what a device can show: in each pixel column the first, lowest, highest and last
// point. A curve with at most two points a column comes through as it is.

class LineThinner {
 public:
  /// `detail`: device pixels a picture unit; `most`: the points that are to come, about.
  LineThinner(double detail, std::size_t most) : detail_(detail) { piece_.reserve(most); }

  /// The next point of the curve; both coordinates finite, x on a picture (not beyond 1e6).
  void Add(PicturePoint point);

  /// A gap: the next point begins a new piece.
  void Break();

  /// After the last Break: pieces of at least two points, and the points alone between gaps.
  std::vector<std::vector<PicturePoint>> TakePieces() { return std::move(pieces_); }
  std::vector<PicturePoint> TakeAlone() { return std::move(alone_); }

 private:
  struct Candidate {
    PicturePoint point;
    int order = 0;  ///< among the column's points
  };
  void FlushColumn();

  double detail_;
  int column_ = 0;
  int count_ = 0;  ///< points in the current column
  Candidate first_;
  Candidate low_;
  Candidate high_;
  Candidate last_;
  std::vector<PicturePoint> piece_;
  std::vector<std::vector<PicturePoint>> pieces_;
  std::vector<PicturePoint> alone_;
};

}  // namespace vistaplot
