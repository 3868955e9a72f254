// Burg's maximum-entropy fit: the autoregressive model that a series' cycles are read from.
#pragma once

#include <span>
#include <vector>

namespace vistaplot {

/// A model of order d.size(): each value is the sum over k of d[k - 1] times the k-th value before
/// it, plus noise of power xms.
struct MemFit {
  float xms = 0.0F;      ///< residual power, in squared units of the data
  std::vector<float> d;  ///< coefficients, the nearest value first
  int m = 0;             ///< the order: as asked for, or lower where the recursion ended early
};

/// Burg's estimate of order `m` from `data`, which is fitted as it is, without removing a mean.
///
/// @param data  at least 1 value, oldest first (or newest first: the fit is the same but for
///              rounding)
/// @return      m stays and d is empty when it is below 1. Where nothing is left to fit (a constant
///              series, or m as long as the data) the order ends before the vanishing denominator,
///              but is never lowered below 1; a first order that cannot be fitted has d = 0.
///
/// For k = 1 to m, with w1 and w2 the forward and backward errors:
///     d[k] = 2 sum w1[j] w2[j] / sum (w1[j]^2 + w2[j]^2),  j = 1 to n - k
///     xms = xms (1 - d[k]^2),  d[i] = d'[i] - d[k] d'[k-i]
///     w1[j] = w1[j] - d[k] w2[j],  w2[j] = w2[j+1] - d[k] w1[j+1]
/// Every operation is rounded to single precision; sums run from j = 1 upwards.
/// Source: Burg, Maximum Entropy Spectral Analysis (1975), in the form of Andersen, On the
/// calculation of filter coefficients for maximum entropy spectral analysis (1974).
MemFit memcof(std::span<const float> data, int m);

/// The model's coefficients after order `k`: d[k - 1] is `reflection`, those before it are
/// adjusted.
void AddCoefficient(std::vector<float>& d, float reflection);

}  // namespace vistaplot
