#include "charts/kinds/value_bands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vistaplot {
namespace {

constexpr int kFewestBands = 8;
constexpr int kMostBands = 12;
constexpr double kOnLimit = 1e-9;  // of a step: values that close to a limit lie on it

int BandCount(double lowest, double highest, double step) {
  const double first = std::floor(lowest / step + kOnLimit);
  const double last = std::ceil(highest / step - kOnLimit);
  return static_cast<int>(last - first);
}

// A place of the OKLab space: lightness 0 to 1, green to red, blue to yellow.
struct Lab {
  double lightness;
  double a;
  double b;
};

constexpr std::array<Lab, 4> kRamp = {
    {{0.32, -0.005, -0.125}, {0.52, -0.060, -0.055}, {0.72, -0.095, 0.040}, {0.92, -0.030, 0.165}}};
constexpr double kLightEnd = 0.93;   // of the ramp, on light ground
constexpr double kDarkStart = 0.16;  // of the ramp, on dark ground

Lab RampAt(double part) {
  const double place = std::clamp(part, 0.0, 1.0) * (kRamp.size() - 1);
  const auto below = std::min(static_cast<std::size_t>(place), kRamp.size() - 2);
  const double rest = place - static_cast<double>(below);
  const Lab& from = kRamp[below];
  const Lab& to = kRamp[below + 1];
  return {from.lightness + rest * (to.lightness - from.lightness),
          from.a + rest * (to.a - from.a),
          from.b + rest * (to.b - from.b)};
}

std::uint8_t ScreenByte(double linear) {
  const double level = std::clamp(linear, 0.0, 1.0);
  const double shown =
      level <= 0.0031308 ? 12.92 * level : 1.055 * std::pow(level, 1.0 / 2.4) - 0.055;
  return static_cast<std::uint8_t>(std::lround(255.0 * shown));
}

// OKLab to sRGB after Ottosson, "A perceptual color space for image processing" (2020).
PictureColor ScreenColor(const Lab& lab) {
  const auto cube = [](double root) { return root * root * root; };
  const double l = cube(lab.lightness + 0.3963377774 * lab.a + 0.2158037573 * lab.b);
  const double m = cube(lab.lightness - 0.1055613458 * lab.a - 0.0638541728 * lab.b);
  const double s = cube(lab.lightness - 0.0894841775 * lab.a - 1.2914855480 * lab.b);
  return {ScreenByte(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
          ScreenByte(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
          ScreenByte(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

}  // namespace

std::vector<double> ValueBands::InnerLimits() const {
  std::vector<double> limits;
  for (int band = 1; band < count; ++band) limits.push_back(LowerLimit(band));
  return limits;
}

int ValueBands::BandOf(double value) const {
  const double place = std::floor((value - first) / step + kOnLimit);
  return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(count - 1)));
}

ValueBands BandsOf(double lowest, double highest) {
  if (!(lowest < highest)) return {lowest, 1.0, 1};
  const double power = std::pow(10.0, std::floor(std::log10(highest - lowest)));
  ValueBands best;
  int least_off = std::numeric_limits<int>::max();
  // Wide steps first: of equally good ones the widest serves.
  for (const double factor : {5.0, 2.5, 2.0, 1.0, 0.5, 0.25, 0.2, 0.1, 0.05}) {
    const double step = power * factor;
    const int count = BandCount(lowest, highest, step);
    const int off = std::max({kFewestBands - count, count - kMostBands, 0});
    if (off >= least_off) continue;
    least_off = off;
    best = {std::floor(lowest / step + kOnLimit) * step, step, count};
  }
  return best;
}

PictureColor RampColor(double part, bool dark) {
  const double from = dark ? kDarkStart : 0.0;
  const double to = dark ? 1.0 : kLightEnd;
  return ScreenColor(RampAt(from + std::clamp(part, 0.0, 1.0) * (to - from)));
}

PictureColor BandColor(const ValueBands& bands, int band, bool dark) {
  if (bands.count < 2) return RampColor(0.5, dark);
  return RampColor(static_cast<double>(band) / (bands.count - 1), dark);
}

}  // namespace vistaplot
