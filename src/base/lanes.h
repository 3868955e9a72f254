// Vectors one register wide, for calculations that run side by side: a lane holds one day, issue or
// case. Lanes never mix, so that a result has the same bits however many run together; a sum is
// never split over lanes. Wider vectors than a register are taken apart by the compiler.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vistaplot {

template <std::size_t kLanes>
struct Lanes {
  static constexpr std::size_t kBytes = kLanes * sizeof(float);
  typedef float Floats __attribute__((vector_size(kBytes)));
  typedef std::int32_t Ints __attribute__((vector_size(kBytes)));
  // Half of the lanes in a register of the same width, and their single-precision form.
  typedef double Doubles __attribute__((vector_size(kBytes)));
  typedef float HalfFloats __attribute__((vector_size(kBytes / 2)));
};

/// How many lanes a calculation uses: eight where the processor has AVX2.
enum class LaneForm { kFour, kEight };

inline LaneForm BestLaneForm() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return LaneForm::kEight;
#endif
  return LaneForm::kFour;
}

/// Reads kLanes neighbours from `from`, which needs no alignment.
template <class Vector, class Element>
[[gnu::always_inline]] inline void LoadLanes(Vector& lanes, const Element* from) {
  std::memcpy(&lanes, from, sizeof(lanes));
}

template <class Vector, class Element>
[[gnu::always_inline]] inline void StoreLanes(const Vector& lanes, Element* to) {
  std::memcpy(to, &lanes, sizeof(lanes));
}

/// `kernel.Run<kLanes>()` compiled for the processor's registers. Run and all that it calls with
/// vectors must be always_inline: only so are they compiled for the wider registers.
template <class Kernel>
void RunFourLanes(Kernel& kernel) {
  kernel.template Run<4>();
}

#if defined(__x86_64__)
template <class Kernel>
[[gnu::target("avx2")]] void RunEightLanes(Kernel& kernel) {
  kernel.template Run<8>();
}
#endif

template <class Kernel>
void RunLanes(Kernel& kernel, LaneForm form) {
#if defined(__x86_64__)
  if (form == LaneForm::kEight) {
    RunEightLanes(kernel);
    return;
  }
#endif
  static_cast<void>(form);
  RunFourLanes(kernel);
}

}  // namespace vistaplot
