#include "analytics/bollinger.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace vistaplot {
namespace {

constexpr std::size_t kBlock = 16;  // days in two of the widest registers

/// The bands of all chart days; the lanes are neighbouring days.
struct BandKernel {
  const float* prices;  ///< from chart day -N on, with whole registers to read at the end
  std::size_t days;     ///< whole registers of them
  std::size_t length;   ///< N
  float sum;            ///< of the days before chart day 1
  float* upper;
  float* middle;
  float* lower;

  // Brings the sum to each day of a block: the means, and which days have bands (-1) or not (0).
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Means(std::size_t day,
                                           float& running,
                                           typename Lanes<kLanes>::Floats& means,
                                           typename Lanes<kLanes>::Ints& has_bands) const {
    const float* leaving = prices + day;
    const float* entering = leaving + length;
    typename Lanes<kLanes>::Floats in, out;
    LoadLanes(in, entering);
    LoadLanes(out, leaving);
    has_bands = (in > 0.0F) & (out > 0.0F);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      if (entering[lane] > 0.0F && leaving[lane] > 0.0F) {
        running = running + entering[lane] - leaving[lane];
      }
      means[lane] = running;
    }
    means /= static_cast<float>(static_cast<int>(length));
  }

  // The sums of squares about the means of two blocks of days, newest price first.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Squares(std::size_t day,
                                             const typename Lanes<kLanes>::Floats (&means)[2],
                                             typename Lanes<kLanes>::Floats (&squares)[2]) const {
    using Floats = typename Lanes<kLanes>::Floats;
    const Floats mean0 = means[0], mean1 = means[1];
    Floats sum0{}, sum1{}, price0, price1;
    for (const float* price = prices + day + length; price != prices + day; --price) {
      LoadLanes(price0, price);
      LoadLanes(price1, price + kLanes);
      const Floats away0 = price0 - mean0;
      const Floats away1 = price1 - mean1;
      sum0 += away0 * away0;
      sum1 += away1 * away1;
    }
    squares[0] = sum0;
    squares[1] = sum1;
  }

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Run() const {
    using Floats = typename Lanes<kLanes>::Floats;
    const auto n = static_cast<float>(static_cast<int>(length));
    const Floats none{};
    float running = sum;
    for (std::size_t day = 0; day < days; day += 2 * kLanes) {
      Floats means[2], squares[2];
      typename Lanes<kLanes>::Ints has_bands[2];
      Means<kLanes>(day, running, means[0], has_bands[0]);
      Means<kLanes>(day + kLanes, running, means[1], has_bands[1]);
      Squares<kLanes>(day, means, squares);
      for (std::size_t half = 0; half < 2; ++half) {
        Floats width = squares[half] / n;
        for (std::size_t lane = 0; lane < kLanes; ++lane) width[lane] = std::sqrt(width[lane]);
        width = 2.0F * width;
        const std::size_t at = day + half * kLanes;
        StoreLanes<Floats>(has_bands[half] ? means[half] + width : none, upper + at);
        StoreLanes<Floats>(has_bands[half] ? means[half] : none, middle + at);
        StoreLanes<Floats>(has_bands[half] ? means[half] - width : none, lower + at);
      }
    }
  }
};

// The prices above 0 of days -1 to -days, newest first.
float FirstSum(const ChartPrices& prices, int days) {
  float sum = 0.0F;
  for (int m = 1; m <= days; ++m) {
    if (prices.At(-m) > 0.0F) sum = sum + prices.At(-m);
  }
  return sum;
}

}  // namespace

BollingerBands ComputeBollinger(const ChartPrices& prices, int days, LaneForm form) {
  const auto count = static_cast<std::size_t>(prices.Days());
  if (days < 1 || count == 0) {
    return {prices.EmptySeries(), prices.EmptySeries(), prices.EmptySeries()};
  }
  const std::size_t whole = (count + kBlock - 1) / kBlock * kBlock;
  BollingerBands bands{
      std::vector<float>(whole), std::vector<float>(whole), std::vector<float>(whole)};
  const std::vector<float> from_oldest = prices.Copy(-days, 0.0F, 2 * kBlock);
  BandKernel kernel{.prices = from_oldest.data(),
                    .days = whole,
                    .length = static_cast<std::size_t>(days),
                    .sum = FirstSum(prices, days),
                    .upper = bands.upper.data(),
                    .middle = bands.middle.data(),
                    .lower = bands.lower.data()};
  RunLanes(kernel, form);
  for (auto* band : {&bands.upper, &bands.middle, &bands.lower}) band->resize(count);
  return bands;
}

}  // namespace vistaplot
