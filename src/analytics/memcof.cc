#include "analytics/memcof.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace vistaplot {
namespace {

/// What forward and backward errors of one order add up to.
struct ErrorSums {
  float num = 0.0F;
  float denom = 0.0F;
};

ErrorSums SumErrors(std::span<const float> wk1, std::span<const float> wk2) {
  ErrorSums sums;
  for (std::size_t j = 0; j < wk1.size(); ++j) {
    sums.num = sums.num + wk1[j] * wk2[j];
    sums.denom = sums.denom + (wk1[j] * wk1[j] + wk2[j] * wk2[j]);
  }
  return sums;
}

float MeanSquare(std::span<const float> data) {
  float sum = 0.0F;
  for (const float value : data) sum = sum + value * value;
  return sum / static_cast<float>(data.size());
}

}  // namespace

void AddCoefficient(std::vector<float>& d, float reflection) {
  const std::vector<float> wkm = d;
  const std::size_t before = d.size();
  for (std::size_t i = 0; i < before; ++i) d[i] = wkm[i] - reflection * wkm[before - 1 - i];
  d.push_back(reflection);
}

MemFit memcof(std::span<const float> data, int m) {
  assert(!data.empty());
  MemFit fit{.xms = MeanSquare(data), .d = {}, .m = m};
  std::vector<float> wk1(data.begin(), data.end() - 1);
  std::vector<float> wk2(data.begin() + 1, data.end());
  for (int k = 1; k <= m; ++k) {
    const ErrorSums sums = SumErrors(wk1, wk2);
    if (sums.denom == 0.0F) {
      fit.m = std::max(k - 1, 1);
      fit.d.resize(static_cast<std::size_t>(fit.m), 0.0F);
      return fit;
    }
    const float reflection = 2.0F * sums.num / sums.denom;
    fit.xms = fit.xms * (1.0F - reflection * reflection);
    AddCoefficient(fit.d, reflection);
    // The next order's errors are one fewer; an order as long as the data leaves none.
    for (std::size_t j = 0; j + 1 < wk1.size(); ++j) {
      wk1[j] = wk1[j] - reflection * wk2[j];
      wk2[j] = wk2[j + 1] - reflection * wk1[j + 1];
    }
    if (!wk1.empty()) {
      wk1.pop_back();
      wk2.pop_back();
    }
  }
  return fit;
}

}  // namespace vistaplot
