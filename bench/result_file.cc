#include "result_file.h"

#include <array>
#include <cstdio>

#include "base/date.h"
#include "base/files.h"
#include "formats/zephyrine_file.h"
#include "random.h"

namespace vistaplot::bench {
namespace {

constexpr std::uint64_t kStream = 0x7777;
constexpr int kGrid = 100;
constexpr int kDates = 9000;

std::string Decimal(double number, int decimals) {
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return text;
}

/// The texts of record `number`, counted from 1.
std::array<std::string, 17> TextsOf(int number, Random& random) {
  const double annual = random.Normal() * 12 + 9;
  const double draw_down = 5 + 40 * random.Uniform();
  const double ulcer = 1 + 9 * random.Uniform();
  const DateSerial date =
      SerialFromDate({.year = 1990, .month = 1, .day = 1}) + random.Below(kDates);
  return {Decimal(number % 10000, 0),
          Decimal(1 + (number - 1) / kGrid, 0),
          Decimal(1 + (number - 1) % kGrid, 0),
          Decimal(12 * random.Uniform(), 1),
          Decimal(annual, 3),
          Decimal(draw_down, 3),
          DateText(date, DatePattern::kMonthDayShortYear),
          Decimal(ulcer, 2),
          Decimal(annual / ulcer, 2),
          Decimal(100 * random.Uniform(), 2),
          Decimal(random.Normal(), 3),
          Decimal(3 * random.Uniform(), 3),
          Decimal(-3 * random.Uniform(), 3),
          Decimal(random.Uniform(), 2),
          Decimal(random.Uniform() * 2, 2),
          Decimal(random.Uniform(), 2),
          Decimal(random.Normal(), 2)};
}

}  // namespace

bool WriteSummaryFile(const std::string& path, int records, std::uint64_t seed) {
  Random random(seed ^ kStream, 0);
  std::string bytes;
  for (int number = 1; number <= records; ++number) {
    AppendTextRecord(bytes, kZephyrineForm, TextsOf(number, random));
  }
  return WriteFileAtomically(path, bytes).Ok();
}

}  // namespace vistaplot::bench
