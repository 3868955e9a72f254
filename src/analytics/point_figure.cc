#include "analytics/point_figure.h"

#include <algorithm>
#include <cmath>

namespace vistaplot {
namespace {

constexpr float kNoPriceBelow = -0.5F;  // or at it

// Levels are sums of rounded boxes: 23.60 may come out a little above or below.
bool IsOn(float value, float limit) {
  const auto exact = static_cast<double>(limit);
  return std::abs(static_cast<double>(value) - exact) <= 1e-5 * std::abs(exact);
}

bool HasReachedUp(float value, float limit) {
  return value >= limit || IsOn(value, limit);
}

bool HasReachedDown(float value, float limit) {
  return value <= limit || IsOn(value, limit);
}

bool HasPrice(float value) {
  return value > kNoPriceBelow;
}

/// The columns as far as they are built.
class Builder {
 public:
  Builder(float level, const PointFigureSettings& settings) : settings_(settings) {
    figure_.level = level;
    figure_.has_price = true;
  }

  void AddDay(float price, int day) {
    const BoxLadders ladders = ComputeBoxLadders(figure_.level, direction_, settings_);
    const bool rises = HasReachedUp(price, ladders.up.back());
    const bool falls = HasReachedDown(price, ladders.down.back());
    if (!rises && !falls) return;
    // A column asks for its own reversal first.
    const bool up = direction_ == Direction::kRising ? !falls : rises;
    const std::vector<float>& levels = up ? ladders.up : ladders.down;
    const Direction direction = up ? Direction::kRising : Direction::kFalling;
    std::vector<FigureBox>& boxes = up ? figure_.x : figure_.o;
    const float size = BoxFor(figure_.level, settings_);
    const bool goes_on = direction == direction_;
    if (!goes_on) ++figure_.columns;
    for (std::size_t k = goes_on ? levels.size() - 1 : 1; k < levels.size(); ++k) {
      boxes.push_back({.column = figure_.columns, .level = levels[k], .size = size, .day = day});
    }
    figure_.level = levels.back();
    direction_ = direction;
  }

  bool HasTooManyColumns() const { return figure_.columns > kMostFigureColumns; }
  PointFigure Take() { return std::move(figure_); }

 private:
  const PointFigureSettings& settings_;
  Direction direction_ = Direction::kNone;
  PointFigure figure_;
};

}  // namespace

float BoxFor(float level, const PointFigureSettings& settings) {
  for (std::size_t range = 0; range + 1 < settings.PfBox.size(); ++range) {
    if (HasReachedUp(level, settings.PfRange[2 * range])) return settings.PfBox[range];
  }
  return settings.PfBox.back();
}

BoxLadders ComputeBoxLadders(float level,
                             Direction direction,
                             const PointFigureSettings& settings) {
  const float box = BoxFor(level, settings);
  BoxLadders ladders{.up = {level}, .down = {level}};
  for (std::size_t k = 1; k <= settings.ReversalBoxes(); ++k) {
    const float up_from = direction == Direction::kRising ? level : ladders.up.back();
    const float down_from = direction == Direction::kFalling ? level : ladders.down.back();
    ladders.up.push_back(up_from + box);
    ladders.down.push_back(down_from - box);
  }
  return ladders;
}

PointFigure ComputePointFigure(std::span<const float> prices, const PointFigureSettings& settings) {
  const auto first = std::find_if(prices.begin(), prices.end(), HasPrice);
  if (first == prices.end()) return {};
  Builder builder(std::nearbyint(*first), settings);
  for (auto price = first + 1; price != prices.end(); ++price) {
    if (!HasPrice(*price)) continue;
    builder.AddDay(*price, static_cast<int>(price - prices.begin()));
    if (builder.HasTooManyColumns()) break;
  }
  return builder.Take();
}

}  // namespace vistaplot
