// Where a chart's cross-hair can rest, and where an arrow key goes from there.
#pragma once

#include <vector>

namespace vistaplot {

struct Stop {
  double position = 0.0;  ///< on the chart's horizontal scale
  int row = 0;            ///< of the view, from 1
  int column = 0;         ///< of charts over two parameters; else 0
  double value = 0.0;     ///< on the vertical scale, where several stops share a position
};

/// The stops of one chart, from left to right and from bottom to top; counted from 0.
class StopList {
 public:
  StopList() = default;

  /// Rows 1 to `count` at the positions 1 to `count`.
  static StopList OfRows(int count);

  /// Any order. `stacked`: stops that share a position are told apart by their values; else one
  /// after the other.
  explicit StopList(std::vector<Stop> stops, bool stacked = false);

  int Count() const { return count_; }
  bool Stacked() const { return stacked_; }
  Stop At(int stop) const;

  /// The stop of a row (and column); Count() when there is none.
  int Find(int row, int column = 0) const;

  /// The stop nearest to a place on the horizontal scale, of stacked ones to the value too; -1
  /// without stops.
  int Nearest(double position, double value) const;

  /// `steps` stops to the right, or left; of stacked ones that many positions, at the value nearest
  /// to the present one. Stays on the list.
  int Beside(int stop, int steps) const;

  /// `steps` stops up, or down, at the same position; the same stop when it is the last one there
  /// or stops are not stacked.
  int Above(int stop, int steps) const;

 private:
  int FirstAt(double position) const;  ///< the first stop at or behind a position

  std::vector<Stop> stops_;  ///< empty where positions are the row numbers
  int count_ = 0;
  bool stacked_ = false;
};

}  // namespace vistaplot
