#include "price_walk.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <fstream>

#include "base/date.h"
#include "random.h"

namespace vistaplot::bench {
namespace {

void AppendPrice(std::string& line, int cents) {
  char text[24];
  std::snprintf(text, sizeof text, ",%d.%02d", cents / 100, cents % 100);
  line += text;
}

}  // namespace

std::string SymbolOf(int issue) {
  char text[16];
  std::snprintf(text, sizeof text, "F%03d", issue);
  return text;
}

std::vector<int> MarketDays(int count) {
  std::vector<int> days;
  constexpr int kFirst = 27396;  // 2 January 1975
  for (int serial = kFirst; static_cast<int>(days.size()) < count; ++serial) {
    if (serial % 7 >= 2) days.push_back(serial);  // serial 0 was a Saturday
  }
  return days;
}

std::vector<int> WalkPrices(int issue, int days, std::uint64_t seed) {
  Random random(seed, static_cast<std::uint64_t>(issue));
  const double spread = 0.004 + 0.016 * random.Uniform();
  const double drift = 0.0001 + 0.0003 * random.Uniform();
  double price = 5.0 + 95.0 * random.Uniform();
  const int first = issue % 4 == 3 ? 1 + (issue * 97) % (days / 2 + 1) : 0;
  std::vector<int> cents(static_cast<std::size_t>(days), 0);
  for (int day = 0; day < days; ++day) {
    price *= 1.0 + drift + spread * random.Normal();
    if (price > 5000.0) price *= 0.25;
    if (price < 1.0) price = 1.0;
    if (day < first) continue;
    cents[static_cast<std::size_t>(day)] = static_cast<int>(std::lround(price * 100.0));
  }
  return cents;
}

std::string SignalFileText(int file, const std::vector<int>& days, std::uint64_t seed) {
  Random random(seed ^ 0x5151U, static_cast<std::uint64_t>(file));
  std::string text = "\"bench signal\"\r\n";
  char letter = random.Below(2) != 0 ? 'B' : 'S';
  for (std::size_t day = 0; day < days.size();) {
    text += letter;
    text += ',';
    text += DateText(days[day], DatePattern::kMonthDayLongYear);
    text += "\r\n";
    day += static_cast<std::size_t>(5 + random.Below(56));
    letter = letter == 'B' ? 'S' : 'B';
  }
  return text;
}

bool WriteWideCsv(const std::string& path, int issues, int days, std::uint64_t seed) {
  std::ofstream file(path, std::ios::binary);
  std::vector<std::vector<int>> prices;
  std::string line = "Date";
  for (int issue = 0; issue < issues; ++issue) {
    prices.push_back(WalkPrices(issue, days, seed));
    line += ',' + SymbolOf(issue);
  }
  file << line << '\n';
  const auto dates = MarketDays(days);
  for (std::size_t day = 0; day < dates.size(); ++day) {
    line = DateText(dates[day], DatePattern::kIso);
    for (const auto& history : prices) {
      if (history[day] == 0) {
        line += ',';
      } else {
        AppendPrice(line, history[day]);
      }
    }
    file << line << '\n';
  }
  file.close();
  return !file.fail();
}

}  // namespace vistaplot::bench
