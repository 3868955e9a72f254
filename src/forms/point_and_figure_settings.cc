#include "forms/point_and_figure_settings.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "base/number_text.h"

namespace vistaplot {

namespace {

constexpr std::array<float, 8> kDefaultRanges = {
    100.0F, 99.99F, 40.0F, 39.99F, 10.0F, 9.99F, 2.5F, 2.49F};
constexpr std::array<float, 5> kDefaultBoxes = {1.0F, 0.4F, 0.2F, 0.1F, 0.05F};
constexpr float kDefaultReversal = 2.0F;
constexpr double kLargestSingle = std::numeric_limits<float>::max();

float ReadNumber(const Settings& settings, std::string_view key, float fallback) {
  const auto number = WholeNumber(settings.Get(key));
  const bool held = number && std::abs(*number) <= kLargestSingle;
  return held ? static_cast<float>(*number) : fallback;
}

}  // namespace

PointAndFigureSettings ReadPointAndFigureSettings(const Settings& settings) {
  PointAndFigureSettings read;
  for (std::size_t i = 0; i < kRangeKeys.size(); ++i) {
    read.PfRange[i] = ReadNumber(settings, kRangeKeys[i], kDefaultRanges[i]);
  }
  for (std::size_t i = 0; i < kBoxKeys.size(); ++i) {
    read.PfBox[i] = ReadNumber(settings, kBoxKeys[i], kDefaultBoxes[i]);
  }
  const float stored = ReadNumber(settings, kReversalKey, kDefaultReversal);
  const bool known = stored >= 1.0F && stored <= 3.0F;
  const float option = known ? stored : kDefaultReversal;
  read.PfReversal = static_cast<std::int16_t>(RoundHalfEven(static_cast<double>(option)) - 1);
  return read;
}

}  // namespace vistaplot
