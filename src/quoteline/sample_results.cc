#include <array>
#include <string_view>

#include "base/date.h"
#include "base/number_text.h"
#include "formats/detail_file.h"
#include "formats/kestrelix_file.h"
#include "formats/summary_file.h"
#include "formats/vornaxil_file.h"
#include "formats/zephyrine_file.h"
#include "quoteline/sample.h"

namespace vistaplot {

namespace {

constexpr int kGrid = 10;  // values of each of the two parameters
constexpr std::string_view kLineEnd = "\r\n";
constexpr DatePattern kShortDate = DatePattern::kMonthDayShortYear;

// The made-up outcome of a test with the parameters a and b, from 1 to kGrid: a smooth hill.
struct Outcome {
  double annual;     // percent
  double draw_down;  // percent
  double ulcer;
  double performance;
  double switches;  // a year
  double winners;   // percent
  DateSerial worst_date;
};

Outcome OutcomeOf(int a, int b) {
  const double x = a - 4.0;
  const double y = b - 6.5;
  const double height = 1.0 / (1.0 + 0.06 * x * x + 0.04 * y * y + 0.02 * x * y);
  const double annual = 4.0 + 11.0 * height;
  const double ulcer = 9.0 - 5.0 * height;
  return {
      .annual = annual,
      .draw_down = 34.0 - 17.0 * height + 0.1 * a,
      .ulcer = ulcer,
      .performance = (annual - 5.4) / ulcer,
      .switches = 14.0 / (1.0 + 0.35 * a + 0.15 * b),
      .winners = 46.0 + 18.0 * height,
      .worst_date = SerialFromDate({.year = 2002, .month = 7, .day = 1}) + 7 * (a + b) + a * b % 5};
}

// Calls each(case number, a, b, outcome) for every case of the grid.
template <class Each>
void OverGrid(Each each) {
  for (int a = 1; a <= kGrid; ++a) {
    for (int b = 1; b <= kGrid; ++b) each((a - 1) * kGrid + b, a, b, OutcomeOf(a, b));
  }
}

std::string ZephyrineSummary() {
  std::string bytes;
  OverGrid([&](int number, int a, int b, const Outcome& o) {
    const std::array<std::string, 17> texts = {std::to_string(number),
                                               std::to_string(5 * a),
                                               std::to_string(5 * b),
                                               FixedText(o.switches, 1),
                                               FixedText(o.annual, 3),
                                               FixedText(o.draw_down, 3),
                                               DateText(o.worst_date, kShortDate),
                                               FixedText(o.ulcer, 2),
                                               FixedText(o.performance, 2),
                                               FixedText(o.winners, 2),
                                               FixedText(o.annual / o.switches, 3),
                                               FixedText(o.annual * 0.61, 3),
                                               FixedText(-o.draw_down * 0.21, 3),
                                               FixedText(0.4 + 0.03 * b, 2),
                                               FixedText(0.55 + 0.02 * a, 2),
                                               FixedText(0.70 + 0.01 * b, 2),
                                               FixedText(o.annual - 7.5, 2)};
    AppendTextRecord(bytes, kZephyrineForm, texts);
  });
  return bytes;
}

// Kind "SM ": line 2 says MA at its columns 6 and 7; the last line is a closing line.
std::string VornaxilFixed() {
  std::string bytes = "Made-up results of a sample test\r\n     MA crossover, three parameters\r\n";
  for (const char* line : {"", "  Parameters                    Results", "", "", ""}) {
    bytes += line;
    bytes += kLineEnd;
  }
  OverGrid([&](int, int a, int b, const Outcome& o) {
    // The last two fields share a byte, which stays blank.
    const std::array<std::string, 8> texts = {std::to_string(5 * a),
                                              std::to_string(10 * b),
                                              "1",
                                              FixedText(o.annual, 2),
                                              FixedText(o.draw_down, 2),
                                              FixedText(o.winners, 1),
                                              FixedText(o.switches, 1),
                                              std::string(1, ' ').append(FixedText(o.ulcer, 2))};
    AppendVornaxilRow(bytes, kVornaxilSmFields, texts);
  });
  return bytes + "  end of the sample\r\n";
}

// Line 3 names the columns; the last line is a closing line.
std::string KestrelixText() {
  const std::array<std::string, 9> names = {
      "No", "Case", "Days", "Level", "Annual", "MDD", "UI", "UPI", "Win"};
  std::string bytes = "Made-up results of a sample test\r\n\r\n";
  AppendKestrelixLine(bytes, names);
  OverGrid([&](int number, int a, int b, const Outcome& o) {
    const std::array<std::string, 9> texts = {std::to_string(number),
                                              std::string(1, 'T').append(std::to_string(number)),
                                              std::to_string(5 * a),
                                              FixedText(0.5 * b, 1),
                                              FixedText(o.annual, 2),
                                              FixedText(o.draw_down, 2),
                                              FixedText(o.ulcer, 2),
                                              FixedText(o.performance, 2),
                                              FixedText(o.winners, 2)};
    AppendKestrelixLine(bytes, texts);
  });
  return bytes + "end of the sample\r\n";
}

std::string SignalSummary() {
  std::string bytes;
  OverGrid([&](int number, int a, int b, const Outcome& o) {
    const SummaryRecord record{.case_number = number,
                               .buy_signals = a,
                               .sell_signals = b,
                               .annual_percent = o.annual,
                               .switches_per_year = o.switches,
                               .draw_down_percent = o.draw_down,
                               .draw_down_date = o.worst_date,
                               .ulcer_index = o.ulcer,
                               .ulcer_performance = o.performance,
                               .winners_percent = o.winners};
    AppendTextRecord(bytes, kSummaryForm, TextsOf(record));
  });
  return bytes;
}

std::string SignalDetail() {
  std::string bytes;
  DateSerial date = SerialFromDate({.year = 2001, .month = 3, .day = 5});
  for (int trade = 0; trade < 60; ++trade) {
    const DateSerial sold = date + 7 * (3 + trade % 9);
    const DetailRecord record{.buy_signals = 5,
                              .sell_signals = 3,
                              .buy_date = date,
                              .trade_date = sold,
                              .gain_percent = (trade * 37 % 50) * 0.31 - 5.2};
    AppendTextRecord(bytes, kDetailForm, TextsOf(record));
    date = sold + 14 + 7 * (trade % 4);
  }
  return bytes;
}

}  // namespace

std::vector<SampleFile> MakeSampleResults() {
  return {{"RESULTS/SAMPLE.SUM", ZephyrineSummary()},
          {"RESULTS/SAMPLE.VX1", VornaxilFixed()},
          {"RESULTS/SAMPLE.TXT", KestrelixText()},
          {"RESULTS/SAMPLE.SSM", SignalSummary()},
          {"RESULTS/SAMPLE.SDT", SignalDetail()}};
}

}  // namespace vistaplot
