#include "analytics/spectrum.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "analytics/mem_power.h"
#include "analytics/memcof.h"

namespace vistaplot {
namespace {

constexpr std::size_t kMostLanes = 8;

/// Storage that whole registers may be read from and written to where they lie.
template <class Element>
class Registers {
 public:
  explicit Registers(std::size_t count) : elements_(count + kMostLanes) {}
  Element* data() {
    const auto misplaced = reinterpret_cast<std::uintptr_t>(elements_.data()) % 32;
    return elements_.data() + (misplaced == 0 ? 0 : (32 - misplaced) / sizeof(Element));
  }

 private:
  std::vector<Element> elements_;
};

/// The rotations of periods kShortestPeriod to `longest`. Those of thousands of periods and poles
/// would fill the memory and are worked out when asked for.
class RotationTable {
 public:
  RotationTable(std::size_t longest, std::size_t order) : order_(order) {
    if (longest * order > kMostKept) return;
    for (std::size_t p = kShortestPeriod; p <= longest; ++p) {
      const std::vector<Rotation> one = Rotations(1.0 / static_cast<double>(p), order);
      kept_.insert(kept_.end(), one.begin(), one.end());
    }
    is_kept_ = true;
  }

  /// As many as the order; valid until the next call.
  const Rotation* Of(std::size_t period) {
    if (is_kept_) return kept_.data() + (period - kShortestPeriod) * order_;
    kept_ = Rotations(1.0 / static_cast<double>(period), order_);
    return kept_.data();
  }

 private:
  static constexpr std::size_t kMostKept = 1U << 20U;
  std::size_t order_;
  bool is_kept_ = false;
  std::vector<Rotation> kept_;
};

/// The spectra of all chart days; the lanes are neighbouring days.
struct SpectrumKernel {
  std::span<const float> prices;  ///< from chart day 1 - P on, whole registers at the end
  std::size_t length;             ///< P
  std::size_t order;              ///< of the next fit
  std::size_t wide;               ///< rotations a period
  RotationTable& rotations;
  float* wk1;  ///< room for P registers each
  float* wk2;
  double* d;   ///< room for a register's lanes of `wide` coefficients each
  float* fit;  ///< the same in single precision, and of the order before
  float* before;
  DailySpectrum& spectrum;

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Run() {
    const auto days = static_cast<std::size_t>(spectrum.Days());
    for (std::size_t day = 0; day < days; day += kLanes) {
      typename Lanes<kLanes>::Floats xms;
      if (Fit<kLanes>(day, xms)) {
        Powers<kLanes>(day, xms);
      } else {
        for (std::size_t lane = 0; lane < kLanes && day + lane < days; ++lane) OneDay(day + lane);
      }
      Maxima<kLanes>(day);
    }
  }

  // The day by itself: its fit may lower the order.
  void OneDay(std::size_t day) {
    const MemFit one = memcof(prices.subspan(day, length), static_cast<int>(order));
    order = static_cast<std::size_t>(one.m);
    for (std::size_t p = kShortestPeriod; p <= length; ++p) {
      spectrum.RowOf(static_cast<int>(p))[day] =
          static_cast<float>(MemPower({rotations.Of(p), wide}, one.d, one.xms));
    }
  }

  // Fits of order `order` to the windows of a block of days (see memcof). False as soon as a
  // denominator vanishes in one of them.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline bool Fit(std::size_t day, typename Lanes<kLanes>::Floats& xms) {
    using Floats = typename Lanes<kLanes>::Floats;
    Floats num{}, denom{};
    Start<kLanes>(day, xms, num, denom);
    for (std::size_t k = 1; k <= order; ++k) {
      const auto vanished = denom == 0.0F;
      if (k >= length || Any<kLanes>(vanished)) return false;
      const Floats reflection = 2.0F * num / denom;
      xms *= 1.0F - reflection * reflection;
      AddCoefficients<kLanes>(k, reflection);
      if (k < order) NextErrors<kLanes>(length - k - 1, reflection, num, denom);
    }
    for (std::size_t k = 0; k < order * kLanes; ++k) d[k] = static_cast<double>(fit[k]);
    return true;
  }

  template <std::size_t kLanes, class Mask>
  [[gnu::always_inline]] static inline bool Any(const Mask& mask) {
    std::int64_t parts[kLanes / 2];
    std::memcpy(parts, &mask, sizeof(parts));
    std::int64_t any = 0;
    for (const std::int64_t part : parts) any |= part;
    return any != 0;
  }

  // The errors of order 0 with what they add up to, and the mean squares of the windows.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Start(std::size_t day,
                                           typename Lanes<kLanes>::Floats& xms,
                                           typename Lanes<kLanes>::Floats& num,
                                           typename Lanes<kLanes>::Floats& denom) {
    using Floats = typename Lanes<kLanes>::Floats;
    const float* window = prices.data() + day;
    float* forward = wk1;
    float* backward = wk2;
    const std::size_t count = length;
    Floats value, next, squares;
    Floats products{}, both{};
    LoadLanes(value, window);
    squares = value * value;
    for (std::size_t j = 0; j + 1 < count; ++j) {
      LoadLanes(next, window + j + 1);
      squares += next * next;
      StoreLanes(value, forward + j * kLanes);
      StoreLanes(next, backward + j * kLanes);
      products += value * next;
      both += value * value + next * next;
      value = next;
    }
    xms = squares / static_cast<float>(count);
    num = products;
    denom = both;
  }

  // The errors of the next order, `count` of them, with what they add up to.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void NextErrors(std::size_t count,
                                                const typename Lanes<kLanes>::Floats& reflection,
                                                typename Lanes<kLanes>::Floats& num,
                                                typename Lanes<kLanes>::Floats& denom) {
    using Floats = typename Lanes<kLanes>::Floats;
    const Floats factor = reflection;
    float* ahead = wk1;
    float* behind = wk2;
    Floats forward, backward, next_forward, next_backward;
    Floats products{}, squares{};
    LoadLanes(forward, ahead);
    LoadLanes(backward, behind);
    for (std::size_t j = 0; j < count; ++j) {
      LoadLanes(next_forward, ahead + (j + 1) * kLanes);
      LoadLanes(next_backward, behind + (j + 1) * kLanes);
      const Floats a = forward - factor * backward;
      const Floats b = next_backward - factor * next_forward;
      StoreLanes(a, ahead + j * kLanes);
      StoreLanes(b, behind + j * kLanes);
      products += a * b;
      squares += a * a + b * b;
      forward = next_forward;
      backward = next_backward;
    }
    num = products;
    denom = squares;
  }

  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void AddCoefficients(
      std::size_t k, const typename Lanes<kLanes>::Floats& reflection) {
    typename Lanes<kLanes>::Floats near, far;
    std::swap(fit, before);
    for (std::size_t i = 0; i + 1 < k; ++i) {
      LoadLanes(near, before + i * kLanes);
      LoadLanes(far, before + (k - 2 - i) * kLanes);
      StoreLanes(near - reflection * far, fit + i * kLanes);
    }
    StoreLanes(reflection, fit + (k - 1) * kLanes);
  }

  // The powers of a block of days, half of the lanes at a time: they are in double precision.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Powers(std::size_t day,
                                            const typename Lanes<kLanes>::Floats& xms) {
    using Doubles = typename Lanes<kLanes>::Doubles;
    using HalfFloats = typename Lanes<kLanes>::HalfFloats;
    constexpr std::size_t kHalf = kLanes / 2;
    const double* const coefficients = d;
    const std::size_t count = order;
    Doubles noise[2];
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      noise[lane / kHalf][lane % kHalf] = static_cast<double>(xms[lane]);
    }
    for (std::size_t p = kShortestPeriod; p <= length; ++p) {
      const Rotation* w = rotations.Of(p);
      Doubles real0 = Doubles{} + 1.0, real1 = real0, imaginary0{}, imaginary1{}, d0, d1;
      for (std::size_t k = 0; k < count; ++k) {
        LoadLanes(d0, coefficients + k * kLanes);
        LoadLanes(d1, coefficients + k * kLanes + kHalf);
        real0 -= d0 * w[k].real;
        real1 -= d1 * w[k].real;
        imaginary0 -= d0 * w[k].imaginary;
        imaginary1 -= d1 * w[k].imaginary;
      }
      float* row = spectrum.RowOf(static_cast<int>(p)) + day;
      const Doubles power0 = noise[0] / (real0 * real0 + imaginary0 * imaginary0);
      const Doubles power1 = noise[1] / (real1 * real1 + imaginary1 * imaginary1);
      StoreLanes(__builtin_convertvector(power0, HalfFloats), row);
      StoreLanes(__builtin_convertvector(power1, HalfFloats), row + kHalf);
    }
  }

  // Strongest periods and peaks of a block of days, from their powers.
  template <std::size_t kLanes>
  [[gnu::always_inline]] inline void Maxima(std::size_t day) {
    using Floats = typename Lanes<kLanes>::Floats;
    Floats highest = Floats{} - 999.0F;
    if (day == 0) highest[0] = -9999.0F;
    Floats dominant{}, two_before{}, one_before{}, power;
    std::array<std::uint8_t, kLanes> counts{};
    for (std::size_t p = kShortestPeriod; p <= length; ++p) {
      LoadLanes(power, spectrum.RowOf(static_cast<int>(p)) + day);
      const auto higher = power > highest;
      highest = higher ? power : highest;
      dominant = higher ? Floats{} + static_cast<float>(p) : dominant;
      const auto is_peak = (one_before > power) & (one_before > two_before);
      if (p - 1 > kShortestPeriod && Any<kLanes>(is_peak)) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
          if (is_peak[lane] != 0 && counts[lane] < kPeaks) {
            spectrum.peaks[day + lane][counts[lane]++] = static_cast<std::int16_t>(p - 1);
          }
        }
      }
      two_before = one_before;
      one_before = power;
    }
    StoreLanes(dominant, &spectrum.dominant[day]);
  }
};

}  // namespace

DailySpectrum::DailySpectrum(int longest_period, int days)
    : longest_period_(longest_period),
      days_(days),
      stride_(static_cast<std::size_t>(days) + kMostLanes),
      powers_(static_cast<std::size_t>(longest_period) * stride_, 0.0F) {
  dominant.assign(stride_, 0.0F);
  peaks.assign(stride_, {});
}

DailySpectrum ComputeSpectrum(const ChartPrices& prices,
                              int longest_period,
                              int poles,
                              LaneForm form) {
  const int period = std::max(longest_period, 1);
  const int days = prices.Days();
  DailySpectrum spectrum(period, days);
  if (period >= kShortestPeriod && days >= 1) {
    // A fit never gets beyond as many coefficients as it has values.
    const auto order = static_cast<std::size_t>(std::clamp(poles, 0, period));
    const std::vector<float> values = prices.Copy(1 - period, -1.0F);
    const auto length = static_cast<std::size_t>(period);
    RotationTable rotations(length, order);
    const std::size_t room = length * kMostLanes;
    Registers<float> wk1(room), wk2(room), fit(room), before(room);
    Registers<double> d(room);
    SpectrumKernel kernel{.prices = values,
                          .length = length,
                          .order = order,
                          .wide = order,
                          .rotations = rotations,
                          .wk1 = wk1.data(),
                          .wk2 = wk2.data(),
                          .d = d.data(),
                          .fit = fit.data(),
                          .before = before.data(),
                          .spectrum = spectrum};
    RunLanes(kernel, form);
    for (int p = 1; p <= period; ++p) spectrum.RowOf(p)[0] = 0.0F;  // day 1's is not kept
    spectrum.peaks[0] = {};
  }
  spectrum.dominant.resize(static_cast<std::size_t>(days));
  spectrum.peaks.resize(static_cast<std::size_t>(days));
  return spectrum;
}

}  // namespace vistaplot
