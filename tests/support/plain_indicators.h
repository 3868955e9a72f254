// The indicators that run in lanes, written down as they are stated: one day after the other, days
// and periods counting from 1, every store rounded to single precision.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "analytics/bollinger.h"
#include "analytics/chart_prices.h"
#include "analytics/hurst.h"
#include "analytics/mem_power.h"
#include "analytics/memcof.h"

namespace vistaplot::test {

inline std::size_t Index(int number) {
  return static_cast<std::size_t>(number - 1);
}

inline BollingerBands PlainBollinger(const ChartPrices& P, int N) {
  BollingerBands bands{P.EmptySeries(), P.EmptySeries(), P.EmptySeries()};
  if (N < 1) return bands;
  float S = 0.0F;
  for (int m = 1; m <= N; ++m) {
    if (P.At(-m) > 0.0F) S = S + P.At(-m);
  }
  for (int i = 1; i <= P.Days(); ++i) {
    const float entering = P.At(i - 1);
    const float leaving = P.At(i - 1 - N);
    if (!(entering > 0.0F && leaving > 0.0F)) continue;
    S = S + entering - leaving;
    const float mean = S / static_cast<float>(N);
    float squares = 0.0F;
    for (int m = 1; m <= N; ++m) squares = squares + (P.At(i - m) - mean) * (P.At(i - m) - mean);
    const float dev = std::sqrt(squares / static_cast<float>(N));
    bands.upper[Index(i)] = mean + 2.0F * dev;
    bands.middle[Index(i)] = mean;
    bands.lower[Index(i)] = mean - 2.0F * dev;
  }
  return bands;
}

inline float PlainCorrelationOfDay(const ChartPrices& first,
                                   const ChartPrices& second,
                                   int N,
                                   int i) {
  const auto n = static_cast<float>(N);
  float sx = 0.0F, sy = 0.0F, sxx = 0.0F, syy = 0.0F, sxy = 0.0F;
  for (int r = i - N - 1; r <= i - 2; ++r) {
    for (const ChartPrices* fund : {&first, &second}) {
      if (fund->At(r) <= 0.0F || fund->At(r - 1) <= 0.0F) return kNoValue;
    }
    const float x = second.At(r) / second.At(r - 1) - 1.0F;
    const float y = first.At(r) / first.At(r - 1) - 1.0F;
    sx = sx + x;
    sy = sy + y;
    sxx = sxx + x * x;
    syy = syy + y * y;
    sxy = sxy + x * y;
  }
  const float d = std::sqrt((n * syy - sy * sy) * (n * sxx - sx * sx));
  return d > 0.0F ? (n * sxy - sx * sy) / d : 1.0F;
}

inline std::vector<float> PlainCorrelation(const ChartPrices& first,
                                           const ChartPrices& second,
                                           int N) {
  std::vector<float> corr = first.EmptySeries();
  if (N < 1) return std::vector<float>(corr.size(), kNoValue);
  const int FirstDay = first.history + 1;
  int s = N - FirstDay + 3;
  if (FirstDay > N) {
    if (!corr.empty()) corr[0] = 0.5F;
    s = 2;
  }
  for (int i = s; i <= first.Days(); ++i) {
    corr[Index(i)] = PlainCorrelationOfDay(first, second, N, i);
  }
  return corr;
}

/// R(b) of the rescaled-range analysis; b = i + T stands for chart day i.
inline std::vector<float> PlainReturns(const ChartPrices& P, int T) {
  std::vector<float> R(static_cast<std::size_t>(P.Days() + T) + 1, -99.0F);
  for (int b = 1; b <= P.Days() + T; ++b) {
    const float before = P.At(b - T - 1);
    const float later = P.At(b - T);
    if (!(before > 0.0F && later > 0.0F)) continue;
    R[static_cast<std::size_t>(b)] =
        static_cast<float>(std::log(static_cast<double>(later / before)));
  }
  return R;
}

/// The rescaled range of the n returns R(b - 1 - (q - 1) n), newest first; 0 without spread.
inline float PlainRange(const std::vector<float>& R, int b, int q, int n) {
  const auto at = [&](int p) { return R[static_cast<std::size_t>(b - p - (q - 1) * n)]; };
  float mean = 0.0F;
  for (int p = 1; p <= n; ++p) mean = mean + at(p);
  mean = mean / static_cast<float>(n);
  float c = 0.0F, least = 99999.0F, most = -99999.0F, squares = 0.0F;
  for (int p = 1; p <= n; ++p) {
    c = c + (at(p) - mean);
    if (c < least) least = c;
    if (c > most) most = c;
    squares = squares + (at(p) - mean) * (at(p) - mean);
  }
  const float dev = std::sqrt(squares / static_cast<float>(n));
  return dev != 0.0F ? (most - least) / dev : 0.0F;
}

inline HurstSeries PlainHurst(const ChartPrices& P, int T, int S, float y) {
  HurstSeries hurst{.values = P.EmptySeries(), .last_y = y};
  if (S < 2 || T <= S || T == 3) {
    hurst.values.assign(hurst.values.size(), kNoValue);
    return hurst;
  }
  const auto ln = [](float v) { return static_cast<float>(std::log(static_cast<double>(v))); };
  const std::vector<float> R = PlainReturns(P, T);
  for (int i = 1; i <= P.Days(); ++i) {
    const int b = i + T;
    if (R[static_cast<std::size_t>(b - T)] == -99.0F) continue;
    float sx = 0.0F, sy = 0.0F, sxx = 0.0F, sxy = 0.0F;
    for (int k = 1; k <= S; ++k) {
      const int m = k + 1;
      const int n = T / m;
      float rs = 0.0F;
      for (int q = 1; q <= m; ++q) rs = rs + PlainRange(R, b, q, n);
      if (rs != 0.0F) hurst.last_y = ln(rs / static_cast<float>(m));
      const float x = ln(static_cast<float>(n));
      sx = sx + x;
      sy = sy + hurst.last_y;
      sxx = sxx + x * x;
      sxy = sxy + x * hurst.last_y;
    }
    const auto s = static_cast<float>(S);
    hurst.values[Index(i)] = (s * sxy - sx * sy) / (s * sxx - sx * sx);
  }
  return hurst;
}

/// Powers of periods 1 to P of every day, day 1 first, and what is read off them.
struct PlainSpectrumDay {
  std::vector<float> power;  ///< index p
  float dominant = 0.0F;
  std::array<int, 5> peaks{};
};

inline std::vector<PlainSpectrumDay> PlainSpectrum(const ChartPrices& prices, int P, int poles) {
  std::vector<PlainSpectrumDay> days;
  std::vector<float> d(static_cast<std::size_t>(P > poles ? P : poles) + 2);
  std::vector<float> data(static_cast<std::size_t>(P) + 1);
  for (int i = 1; i <= prices.Days(); ++i) {
    for (int j = 1; j <= P; ++j) {
      const int day = i - P + j - 1;
      data[static_cast<std::size_t>(j)] = prices.history + day >= 1 ? prices.At(day) : -1.0F;
    }
    PlainSpectrumDay& one = days.emplace_back();
    one.power.assign(static_cast<std::size_t>(P) + 1, 0.0F);
    if (P < 8) continue;
    // An order once lowered stays; a coefficient that a day does not reach is the day's before.
    const MemFit fit = memcof(std::span(data).subspan(1), poles);
    poles = fit.m;
    if (fit.d != std::vector<float>{0.0F}) std::copy(fit.d.begin(), fit.d.end(), d.begin());
    const auto reached = std::span(d).first(static_cast<std::size_t>(poles > 0 ? poles : 0));
    float highest = i == 1 ? -9999.0F : -999.0F;
    std::size_t count = 0;
    for (std::size_t p = 8; p <= static_cast<std::size_t>(P); ++p) {
      one.power[p] = static_cast<float>(MemPower(1.0 / static_cast<double>(p), reached, fit.xms));
      if (one.power[p] > highest) {
        highest = one.power[p];
        one.dominant = static_cast<float>(p);
      }
      const bool is_peak =
          p - 1 > 8 && one.power[p - 1] > one.power[p] && one.power[p - 1] > one.power[p - 2];
      if (is_peak && i > 1 && count < 5) one.peaks[count++] = static_cast<int>(p - 1);
    }
    if (i == 1) one.power.assign(one.power.size(), 0.0F);
  }
  return days;
}

}  // namespace vistaplot::test
