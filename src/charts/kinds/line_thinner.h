// Keeps of a curve what a device can show: in each pixel column the first, lowest, highest and last
// point. A curve with at most two points a column comes through as it is.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "charts/view/chart_picture.h"

namespace vistaplot {

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
