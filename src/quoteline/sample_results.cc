#include "quoteline/sample_results.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "base/date.h"
#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

constexpr int kGrid = 10;  // values of each of the two parameters
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kRecordTail = "\r\n  ";

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

std::string ShortDate(DateSerial serial) {
  return DateText(serial, DatePattern::kMonthDayShortYear);
}

// Fields cut or padded to their widths, joined by `separator`.
std::string Record(std::span<const std::string> fields,
                   std::span<const std::size_t> widths,
                   char separator) {
  std::string record;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) record += separator;
    record += PadRight(fields[i], widths[i]);
  }
  record += kRecordTail;
  return record;
}

// Calls add(case number, a, b, outcome) for every case of the grid.
template <class Add>
std::string OverGrid(Add add) {
  std::string bytes;
  for (int a = 1; a <= kGrid; ++a) {
    for (int b = 1; b <= kGrid; ++b) bytes += add((a - 1) * kGrid + b, a, b, OutcomeOf(a, b));
  }
  return bytes;
}

std::string ZephyrineSummary() {
  constexpr std::array<std::size_t, 17> kWidths = {
      4, 4, 4, 4, 8, 8, 8, 4, 4, 5, 8, 8, 8, 4, 6, 6, 6};
  return OverGrid([&](int number, int a, int b, const Outcome& o) {
    const std::array<std::string, 17> fields = {std::to_string(number),
                                                std::to_string(5 * a),
                                                std::to_string(5 * b),
                                                FixedText(o.switches, 1),
                                                FixedText(o.annual, 3),
                                                FixedText(o.draw_down, 3),
                                                ShortDate(o.worst_date),
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
    return Record(fields, kWidths, ' ');
  });
}

// Places `text` so that it begins at column `start`, counted from 1.
void PutAt(std::string& line, std::size_t start, std::string_view text) {
  line.resize(start - 1, ' ');
  line += text;
}

// Kind "SM": line 2 says MA at its columns 6 and 7; the rows start in line 8; the last line is a
// closing line.
std::string VornaxilFixed() {
  std::string bytes = "Made-up results of a sample test\r\n     MA crossover, three parameters\r\n";
  for (const char* line : {"", "  Parameters                    Results", "", "", ""}) {
    bytes += line;
    bytes += kLineEnd;
  }
  bytes += OverGrid([](int, int a, int b, const Outcome& o) {
    std::string line;
    PutAt(line, 3, std::to_string(5 * a));
    PutAt(line, 12, std::to_string(10 * b));
    PutAt(line, 21, "1");
    PutAt(line, 33, FixedText(o.annual, 2));
    PutAt(line, 42, FixedText(o.draw_down, 2));
    PutAt(line, 51, FixedText(o.winners, 1));
    PutAt(line, 61, FixedText(o.switches, 1));
    PutAt(line, 69, FixedText(o.ulcer, 2));
    return line + std::string(kLineEnd);
  });
  return bytes + "  end of the sample\r\n";
}

// Line 3 names the columns; the last line is a closing line.
std::string KestrelixText() {
  constexpr std::array<std::size_t, 9> kWidths = {3, 7, 8, 8, 9, 9, 9, 9, 9};
  const auto line_of = [&](std::span<const std::string> fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      line.append(kWidths[i] - fields[i].size(), ' ');
      line += fields[i];
    }
    return line + std::string(kLineEnd);
  };
  const std::array<std::string, 9> names = {
      "No", "Case", "Days", "Level", "Annual", "MDD", "UI", "UPI", "Win"};
  std::string bytes = "Made-up results of a sample test\r\n\r\n" + line_of(names);
  bytes += OverGrid([&](int number, int a, int b, const Outcome& o) {
    const std::array<std::string, 9> fields = {std::to_string(number),
                                               std::string(1, 'T').append(std::to_string(number)),
                                               std::to_string(5 * a),
                                               FixedText(0.5 * b, 1),
                                               FixedText(o.annual, 2),
                                               FixedText(o.draw_down, 2),
                                               FixedText(o.ulcer, 2),
                                               FixedText(o.performance, 2),
                                               FixedText(o.winners, 2)};
    return line_of(fields);
  });
  return bytes + "end of the sample\r\n";
}

std::string SignalSummary() {
  constexpr std::array<std::size_t, 10> kWidths = {4, 4, 4, 8, 4, 8, 8, 8, 8, 8};
  return OverGrid([&](int number, int a, int b, const Outcome& o) {
    const std::array<std::string, 10> fields = {std::to_string(number),
                                                std::to_string(a),
                                                std::to_string(b),
                                                FixedText(o.annual, 3),
                                                FixedText(o.switches, 1),
                                                FixedText(o.draw_down, 3),
                                                ShortDate(o.worst_date),
                                                FixedText(o.ulcer, 3),
                                                FixedText(o.performance, 3),
                                                FixedText(o.winners, 2)};
    return Record(fields, kWidths, '\t');
  });
}

std::string SignalDetail() {
  constexpr std::array<std::size_t, 5> kWidths = {4, 4, 8, 8, 8};
  std::string bytes;
  DateSerial date = SerialFromDate({.year = 2001, .month = 3, .day = 5});
  for (int trade = 0; trade < 60; ++trade) {
    const DateSerial sold = date + 7 * (3 + trade % 9);
    const double gain = (trade * 37 % 50) * 0.31 - 5.2;
    const std::array<std::string, 5> fields = {
        "5", "3", ShortDate(date), ShortDate(sold), FixedText(gain, 3)};
    bytes += Record(fields, kWidths, '\t');
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
