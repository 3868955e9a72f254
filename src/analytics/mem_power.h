// The power spectrum of a maximum-entropy model.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace vistaplot {

/// Power of an autoregressive model at frequency `f` (cycles per day), in squared units of the
/// data:
///     xms / | 1 - sum over k = 1 to m of d[k] e^(2 pi i f k) |^2,  m = d.size()
/// in double precision, the angles stepped by rotation. Infinite or undefined where the model has
/// no noise left. The power of a cycle of p days is the power at 1 / p.
/// Source: Burg, Maximum Entropy Spectral Analysis (1975).
double MemPower(double f, std::span<const float> d, float xms);

/// e^(2 pi i f k) for k = 1 to `order`, as the rotation steps it.
struct Rotation {
  double real = 1.0;
  double imaginary = 0.0;
};
std::vector<Rotation> Rotations(double f, std::size_t order);

/// MemPower with rotations that were worked out before; at least as many as `d` is long.
double MemPower(std::span<const Rotation> rotations, std::span<const float> d, float xms);

/// The cycle of `first` to `last` days with the highest power, the shortest of equal ones; powers
/// are compared in single precision. 0 when there is none.
int StrongestPeriod(int first, int last, std::span<const float> d, float xms);

}  // namespace vistaplot
