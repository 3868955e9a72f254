// Point and figure: daily prices as columns of boxes, X for rises and O for falls.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace vistaplot {

/// How high a box is at each level, and how far a price must turn for a new column.
struct PointFigureSettings {
  /// Limits of the ranges in price units. [0], [2], [4], [6] are the lower limits of the four upper
  /// ranges and decide; [1], [3], [5], [7] are upper limits, for show.
  std::array<float, 8> PfRange{100.0F, 99.99F, 40.0F, 39.99F, 10.0F, 9.99F, 2.5F, 2.49F};
  std::array<float, 5> PfBox{1.0F, 0.4F, 0.2F, 0.1F, 0.05F};  ///< top range first
  int PfReversal = 1;                                         ///< 0: 1 box, 1: 3 boxes, 2: 5 boxes

  std::size_t ReversalBoxes() const {
    return static_cast<std::size_t>(2 * std::clamp(PfReversal, 0, 2) + 1);
  }
};

/// The height of a box at `level`. A level within 1e-5 (relative) of a limit counts as on it.
float BoxFor(float level, const PointFigureSettings& settings);

enum class Direction { kNone, kRising, kFalling };

/// Levels from the reference level outwards: up[0] and down[0] are the reference, up.back() is what
/// a rise must reach and down.back() what a fall must reach. The column's own direction has its
/// next box at every index but 0, the other one a box more at each.
struct BoxLadders {
  std::vector<float> up;
  std::vector<float> down;
};

/// The ladders from `level`, with the box of `level` for every step: ReversalBoxes() + 1 entries,
/// each the single-precision sum of the one before and a box.
BoxLadders ComputeBoxLadders(float level, Direction direction, const PointFigureSettings& settings);

struct FigureBox {
  int column = 0;  ///< 1 for the first
  float level = 0.0F;
  float size = 0.0F;  ///< its height, the box value of the level that it was counted from
  int day = 0;        ///< index of the day that added it, in the prices given
  bool operator==(const FigureBox&) const = default;
};

/// The most columns that a chart holds.
inline constexpr int kMostFigureColumns = 40;

struct PointFigure {
  std::vector<FigureBox> x;  ///< in the order in which they were added
  std::vector<FigureBox> o;
  int columns = 0;         ///< one more than kMostFigureColumns as soon as there are too many
  float level = 0.0F;      ///< the reference level that the last day left
  bool has_price = false;  ///< a day has one; nothing else is set without
};

/// Columns of a price history.
///
/// @param prices  one value a market day, oldest first, in price units; days at or below -0.5 have
///                no price and are passed over. The first priced day gives the starting level, its
///                price to the nearest whole number (halves to even), the days behind it build.
/// @return        no boxes when no day has a price. Building stops at column 41.
///
/// A day adds one box to the current column at most, however far the price has gone, or reverses it
/// with ReversalBoxes() boxes at once. A price within 1e-5 (relative) of a level has reached it.
/// Every box value is above 0.
PointFigure ComputePointFigure(std::span<const float> prices, const PointFigureSettings& settings);

}  // namespace vistaplot
