#include "plain_loops.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace vistaplot::bench {

void PlainEma(const float* p, int days, int length, float* ema) {
  const float alpha = 2.0F / static_cast<float>(length + 1);
  ema[0] = p[0];
  for (int j = 1; j < days; ++j) ema[j] = alpha * p[j] + (1.0F - alpha) * ema[j - 1];
}

void PlainAma(const float* p, int days, int length, float* ama) {
  const auto n = static_cast<float>(length);
  const float alpha = 2.0F / (n + 1.0F);
  float before = p[0];
  ama[0] = p[0];
  for (int j = 1; j < days; ++j) {
    const float e = alpha * p[j] + (1.0F - alpha) * before;
    ama[j] = alpha * (n * e - (n - 1.0F) * before) + (1.0F - alpha) * ama[j - 1];
    before = e;
  }
}

void PlainParabolic(const float* p, int days, float* stop) {
  const float start = 0.02F;
  const float most = 0.2F;
  const float increase = 0.0001F;
  stop[0] = p[0];
  float af = start;
  float ep = p[0];
  int trend = p[1] >= p[0] ? 1 : -1;
  for (int j = 1; j < days; ++j) {
    const int t = j - 1;
    if ((trend == 1 && p[t] > ep) || (trend == -1 && p[t] < ep)) {
      af = af + increase > most ? most : af + increase;
      ep = p[t];
    }
    if ((trend == 1 && p[t] <= stop[t]) || (trend == -1 && p[t] >= stop[t])) {
      stop[j] = ep;
      ep = p[t];
      af = start;
      trend = -trend;
    } else {
      stop[j] = stop[t] + af * (ep - stop[t]);
    }
  }
}

void PlainBollinger(
    const float* p, int days, int length, float* upper, float* middle, float* lower) {
  const auto n = static_cast<float>(length);
  float sum = 0.0F;
  for (int m = 1; m <= length; ++m) sum += p[-1 - m];
  for (int i = 0; i < days; ++i) {
    sum = sum + p[i - 1] - p[i - 1 - length];
    const float mean = sum / n;
    float squares = 0.0F;
    for (int m = 1; m <= length; ++m) squares += (p[i - m] - mean) * (p[i - m] - mean);
    const float dev = std::sqrt(squares / n);
    upper[i] = mean + 2.0F * dev;
    middle[i] = mean;
    lower[i] = mean - 2.0F * dev;
  }
}

void PlainCorrelation(const float* first, const float* second, int days, int length, float* corr) {
  const auto n = static_cast<float>(length);
  corr[0] = 0.5F;
  for (int i = 1; i < days; ++i) {
    float sx = 0.0F, sy = 0.0F, sxx = 0.0F, syy = 0.0F, sxy = 0.0F;
    for (int r = i - length - 1; r <= i - 2; ++r) {
      const float x = second[r] / second[r - 1] - 1.0F;
      const float y = first[r] / first[r - 1] - 1.0F;
      sx += x;
      sy += y;
      sxx += x * x;
      syy += y * y;
      sxy += x * y;
    }
    const float d = std::sqrt((n * syy - sy * sy) * (n * sxx - sx * sx));
    corr[i] = d > 0.0F ? (n * sxy - sx * sy) / d : 1.0F;
  }
}

void PlainHurst(const float* p, int days, int window, int subdivisions, float* hurst) {
  const auto ln = [](float v) { return static_cast<float>(std::log(static_cast<double>(v))); };
  std::vector<float> returns(static_cast<std::size_t>(days + window));
  for (int b = 0; b < days + window; ++b) {
    returns[static_cast<std::size_t>(b)] = ln(p[b - window] / p[b - window - 1]);
  }
  float y = 0.0F;
  for (int i = 0; i < days; ++i) {
    float sx = 0.0F, sy = 0.0F, sxx = 0.0F, sxy = 0.0F;
    for (int m = 2; m <= subdivisions + 1; ++m) {
      const int n = window / m;
      float rs = 0.0F;
      for (int q = 0; q < m; ++q) {
        const float* newest = returns.data() + i + window - 1 - q * n;
        float mean = 0.0F;
        for (int k = 0; k < n; ++k) mean += newest[-k];
        mean /= static_cast<float>(n);
        float c = 0.0F, least = 99999.0F, most = -99999.0F, squares = 0.0F;
        for (int k = 0; k < n; ++k) {
          const float away = newest[-k] - mean;
          c += away;
          if (c < least) least = c;
          if (c > most) most = c;
          squares += away * away;
        }
        const float dev = std::sqrt(squares / static_cast<float>(n));
        if (dev != 0.0F) rs += (most - least) / dev;
      }
      if (rs != 0.0F) y = ln(rs / static_cast<float>(m));
      const float x = ln(static_cast<float>(n));
      sx += x;
      sy += y;
      sxx += x * x;
      sxy += x * y;
    }
    const auto s = static_cast<float>(subdivisions);
    hurst[i] = (s * sxy - sx * sy) / (s * sxx - sx * sx);
  }
}

namespace {

// Burg's recursion; returns the residual power.
float PlainFit(const float* data, int n, int m, float* d) {
  std::vector<float> wk1(data, data + n - 1);
  std::vector<float> wk2(data + 1, data + n);
  std::vector<float> wkm(static_cast<std::size_t>(m));
  float xms = 0.0F;
  for (int j = 0; j < n; ++j) xms += data[j] * data[j];
  xms /= static_cast<float>(n);
  float* a = wk1.data();
  float* b = wk2.data();
  for (int k = 1; k <= m; ++k) {
    float num = 0.0F, denom = 0.0F;
    for (int j = 0; j < n - k; ++j) {
      num += a[j] * b[j];
      denom += a[j] * a[j] + b[j] * b[j];
    }
    const float reflection = 2.0F * num / denom;
    d[k - 1] = reflection;
    xms *= 1.0F - reflection * reflection;
    for (int i = 0; i < k - 1; ++i) {
      d[i] =
          wkm[static_cast<std::size_t>(i)] - reflection * wkm[static_cast<std::size_t>(k - 2 - i)];
    }
    for (int i = 0; i < k; ++i) wkm[static_cast<std::size_t>(i)] = d[i];
    for (int j = 0; j < n - k - 1; ++j) {
      a[j] = a[j] - reflection * b[j];
      b[j] = b[j + 1] - reflection * a[j + 1];
    }
  }
  return xms;
}

}  // namespace

void PlainSpectrum(const float* p, int days, int length, int poles, float* powers) {
  std::vector<float> d(static_cast<std::size_t>(poles));
  for (int i = 0; i < days; ++i) {
    const float xms = PlainFit(p + i - length, length, poles, d.data());
    for (int period = 8; period <= length; ++period) {
      const double theta = 6.28318530717959 / period;
      const double cosine = std::cos(theta);
      const double sine = std::sin(theta);
      double wr = 1.0, wi = 0.0, real = 1.0, imaginary = 0.0;
      for (const float coefficient : d) {
        const double old = wr;
        wr = wr * cosine - wi * sine;
        wi = wi * cosine + old * sine;
        real -= static_cast<double>(coefficient) * wr;
        imaginary -= static_cast<double>(coefficient) * wi;
      }
      powers[static_cast<std::ptrdiff_t>(period - 8) * days + i] =
          static_cast<float>(static_cast<double>(xms) / (real * real + imaginary * imaginary));
    }
  }
}

}  // namespace vistaplot::bench
