// Random numbers that are the same on every machine.
#pragma once

#include <cstdint>

namespace vistaplot::bench {

/// splitmix64 (Steele, Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014).
class Random {
 public:
  Random(std::uint64_t seed, std::uint64_t stream)
      : state_(seed * 0x9E3779B97F4A7C15U + (stream + 1) * 0xD1B54A32D192ED03U) {
    Next();
  }

  /// From 0 to 1, without 1.
  double Uniform() { return static_cast<double>(Next() >> 11U) * (1.0 / 9007199254740992.0); }

  /// Mean 0, variance 1: a sum of 12 uniforms less 6.
  double Normal() {
    double sum = 0.0;
    for (int i = 0; i < 12; ++i) sum += Uniform();
    return sum - 6.0;
  }

  /// From 0 to count - 1.
  int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }

 private:
  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15U);
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }

  std::uint64_t state_;
};

}  // namespace vistaplot::bench
