#include "analytics/mem_power.h"

#include <cmath>

namespace vistaplot {
namespace {

constexpr double kTwoPi = 6.28318530717959;

}  // namespace

std::vector<Rotation> Rotations(double f, std::size_t order) {
  const double theta = kTwoPi * f;
  const double cosine = std::cos(theta);
  const double sine = std::sin(theta);
  std::vector<Rotation> rotations(order);
  Rotation w;
  for (Rotation& rotation : rotations) {
    w = {.real = w.real * cosine - w.imaginary * sine,
         .imaginary = w.imaginary * cosine + w.real * sine};
    rotation = w;
  }
  return rotations;
}

double MemPower(std::span<const Rotation> rotations, std::span<const float> d, float xms) {
  double real = 1.0;
  double imaginary = 0.0;
  for (std::size_t k = 0; k < d.size(); ++k) {
    const auto coefficient = static_cast<double>(d[k]);
    real = real - coefficient * rotations[k].real;
    imaginary = imaginary - coefficient * rotations[k].imaginary;
  }
  return static_cast<double>(xms) / (real * real + imaginary * imaginary);
}

double MemPower(double f, std::span<const float> d, float xms) {
  return MemPower(Rotations(f, d.size()), d, xms);
}

int StrongestPeriod(int first, int last, std::span<const float> d, float xms) {
  int strongest = 0;
  float highest = -9999.0F;
  for (int period = first; period <= last; ++period) {
    const auto power = static_cast<float>(MemPower(1.0 / period, d, xms));
    if (power > highest) {
      highest = power;
      strongest = period;
    }
  }
  return strongest;
}

}  // namespace vistaplot
