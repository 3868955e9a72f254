// A series that moves like a fund, scaled by a factor.
#pragma once

#include <span>
#include <vector>

namespace vistaplot {

/// The series of `beta` times each day's change of a fund, from `start_value` on day 1 on.
///
/// @param prices  the fund's numbers as its cells show them, one a market day; at or below -0.5: no
///                price
/// @return        as long as `prices`, in the units of `start_value`
///
/// v[i] = v[i-1] + beta v[i-1] (p[i] / p[i-1] - 1), in double, rounded to single at every day. The
/// value stays where the day before has no price, or a price of 0. Only the day before is looked
/// at: a fund that loses its price falls to -1.
std::vector<float> ComputeBetaSeries(std::span<const double> prices, float beta, float start_value);

}  // namespace vistaplot
