#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "quoteline/sample.h"

namespace vistaplot {

namespace {

constexpr CivilDate kFirstDate{.year = 1999, .month = 1, .day = 1};
constexpr CivilDate kLastDate{.year = 2023, .month = 12, .day = 29};

struct Sponsor {
  char letter;
  const char* name;
};
constexpr std::array<Sponsor, 5> kSponsors = {{{'A', "Alderwick"},
                                               {'B', "Bramfell"},
                                               {'C', "Corvane"},
                                               {'D', "Dunmarrow"},
                                               {'E', "Eskwood"}}};

// How an issue moves: with the market (beta) and on its own, as fractions a day.
struct Motion {
  double beta;
  double own;
  double drift;
  double start;  // first price
};

struct Style {
  const char* code;
  const char* name;
  const char* family;
  Motion motion;
};
constexpr std::array<Style, 8> kStyles = {{
    {"GR", "Growth Fund", "GROWTH", {1.15, 0.0035, 0.00006, 18.0}},
    {"VA", "Value Fund", "VALUE", {0.85, 0.0025, 0.00009, 14.5}},
    {"BA", "Balanced Fund", "BALANCED", {0.55, 0.0015, 0.00007, 12.2}},
    {"SC", "Small Companies Fund", "GROWTH", {1.20, 0.0055, 0.00005, 9.8}},
    {"IN", "International Fund", "INTL", {0.75, 0.0050, 0.00003, 11.0}},
    {"TE", "Technology Fund", "GROWTH", {1.45, 0.0075, 0.00004, 10.0}},
    {"BI", "Bond Income Fund", "BONDS", {-0.05, 0.0022, 0.00013, 10.4}},
    {"ST", "Short-Term Bond Fund", "BONDS", {0.01, 0.0006, 0.00009, 10.0}},
}};

struct Named {
  const char* symbol;
  const char* name;
  Motion motion;
};
constexpr std::array<Named, 20> kStocks = {{
    {"ARDQ", "Ardenholt Airways", {1.2, 0.016, 0.00002, 24.5}},
    {"BRKQ", "Brackwater Oil", {0.8, 0.014, 0.00012, 31.2}},
    {"CDMQ", "Cindermoor Steel", {1.1, 0.017, 0.00003, 18.9}},
    {"DOVQ", "Dovelane Foods", {0.5, 0.009, 0.00014, 22.4}},
    {"ELMQ", "Elmsgate Software", {1.4, 0.020, 0.00015, 8.6}},
    {"FARQ", "Farrowdale Paper", {0.8, 0.013, 0.00002, 15.1}},
    {"GLNQ", "Glenmarch Motors", {1.1, 0.016, 0.00001, 37.8}},
    {"HOLQ", "Hollinbeck Drugs", {0.6, 0.012, 0.00018, 26.3}},
    {"IRQ", "Ironquay Shipping", {1.0, 0.018, 0.00004, 12.7}},
    {"JUNQ", "Juniperfield Stores", {0.8, 0.013, 0.00011, 19.4}},
    {"KWQ", "Kestwick Chemical", {0.9, 0.012, 0.00008, 28.6}},
    {"LARQ", "Larkmere Insurance", {0.9, 0.011, 0.00009, 33.3}},
    {"MOSQ", "Mossbarrow Power", {0.4, 0.008, 0.00007, 21.7}},
    {"NORQ", "Norvale Telephone", {0.6, 0.011, 0.00005, 40.2}},
    {"OAKQ", "Oakmarsh Railways", {0.9, 0.011, 0.00013, 16.8}},
    {"PNQ", "Pinesedge Mining", {0.7, 0.021, 0.00006, 11.5}},
    {"QRYQ", "Quarrylow Cement", {1.0, 0.014, 0.00006, 23.9}},
    {"ROWQ", "Rowanlea Textiles", {0.8, 0.015, 0.00001, 13.2}},
    {"SVFQ", "Silverfen Semiconductor", {1.6, 0.022, 0.00014, 9.1}},
    {"THQ", "Thistlemoor Media", {1.0, 0.015, 0.00005, 20.6}},
}};
constexpr std::array<Named, 6> kIndexes = {{
    {"^ALL", "Sample All-Share Index", {1.0, 0.0, 0.0, 1000.0}},
    {"^LRG", "Sample Large Company Index", {0.95, 0.0012, 0.0, 450.0}},
    {"^SML", "Sample Small Company Index", {1.15, 0.0035, 0.0, 220.0}},
    {"^TEC", "Sample Technology Index", {1.45, 0.0060, 0.0, 850.0}},
    {"^INT", "Sample International Index", {0.75, 0.0045, 0.0, 1200.0}},
    {"^BND", "Sample Bond Index", {-0.05, 0.0018, 0.00014, 100.0}},
}};

// Random numbers: S. Vigna, "splitmix64" (public domain, 2015).
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  // From 0 up to 1.
  double Uniform() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return static_cast<double>((z ^ (z >> 31U)) >> 11U) * 0x1p-53;
  }

  // Nearly normal with mean 0 and variance 1: the sum of twelve uniform numbers less 6.
  double Normal() {
    double sum = 0.0;
    for (int i = 0; i < 12; ++i) sum += Uniform();
    return sum - 6.0;
  }

 private:
  std::uint64_t state_;
};

int DayOfMonth(DateSerial serial) {
  return DateFromSerial(serial).day;
}

// Mondays and a Thursday that stay closed, and fixed dates moved off the weekend.
bool IsHoliday(DateSerial serial) {
  const CivilDate date = DateFromSerial(serial);
  const Weekday weekday = WeekdayOf(serial);
  const int week = (date.day - 1) / 7 + 1;
  if (weekday == Weekday::kMonday) {
    const bool last_of_month = DayOfMonth(serial + 7) < date.day;
    if ((date.month == 2 && week == 3) || (date.month == 9 && week == 1)) return true;
    if (date.month == 5 && last_of_month) return true;
  }
  if (weekday == Weekday::kThursday && date.month == 11 && week == 4) return true;
  const auto is_fixed = [](const CivilDate& day) {
    return (day.month == 1 && day.day == 1) || (day.month == 7 && day.day == 4) ||
           (day.month == 12 && day.day == 25);
  };
  if (is_fixed(date)) return true;
  if (weekday == Weekday::kMonday) return is_fixed(DateFromSerial(serial - 1));
  return weekday == Weekday::kFriday && date.month != 12 && is_fixed(DateFromSerial(serial + 1));
}

std::vector<DateSerial> MakeCalendar() {
  std::vector<DateSerial> days;
  const DateSerial last = SerialFromDate(kLastDate);
  for (DateSerial day = SerialFromDate(kFirstDate); day <= last; ++day) {
    const Weekday weekday = WeekdayOf(day);
    const bool weekend = weekday == Weekday::kSaturday || weekday == Weekday::kSunday;
    if (!weekend && !IsHoliday(day)) days.push_back(day);
  }
  return days;
}

// The market's daily moves: long rises, shorter falls with wider moves.
std::vector<double> MakeMarketMoves(std::size_t days) {
  Random random(1);
  std::vector<double> moves(days);
  bool rising = true;
  for (std::size_t i = 1; i < days; ++i) {
    if (random.Uniform() < (rising ? 0.0010 : 0.0035)) rising = !rising;
    moves[i] = rising ? 0.00062 + 0.0075 * random.Normal() : -0.00085 + 0.0140 * random.Normal();
  }
  return moves;
}

float Cents(double price) {
  return static_cast<float>(std::floor(price * 100.0 + 0.5) / 100.0);
}

// Prices from day `first` on (from 0); a stock that grew dear is split, one that fell stays alive.
std::vector<float> MakePrices(const std::vector<double>& market,
                              const Motion& motion,
                              std::uint64_t seed,
                              std::size_t first) {
  Random random(seed);
  std::vector<float> prices(market.size());
  double price = motion.start;
  for (std::size_t i = 0; i < market.size(); ++i) {
    const double own = motion.own * random.Normal();
    if (i < first) continue;
    if (i > first) price *= 1.0 + motion.beta * market[i] + own + motion.drift;
    price = std::max(price, motion.start * 0.05);
    prices[i] = Cents(price);
  }
  return prices;
}

// Most issues have been there from the beginning, the others came in later years.
std::size_t FirstDay(std::size_t number, std::size_t days) {
  constexpr std::array<std::size_t, 8> kPercent = {0, 0, 7, 0, 16, 0, 31, 48};
  return days * kPercent[(number * 5 + number / 8) % kPercent.size()] / 100;
}

void AddFunds(const std::vector<double>& market, SampleMarket& sample) {
  std::size_t number = 0;
  for (const Sponsor& sponsor : kSponsors) {
    for (const Style& style : kStyles) {
      SampleIssue fund{.kind = SampleKind::kFund,
                       .symbol = std::string(1, sponsor.letter) + "Q" + style.code + "X",
                       .name = std::string(sponsor.name) + " " + style.name,
                       .group = style.family,
                       .prices = {}};
      fund.prices =
          MakePrices(market, style.motion, 1000 + number, FirstDay(number, market.size()));
      sample.issues.push_back(std::move(fund));
      ++number;
    }
  }
  // One fund was closed in the meantime: its last price stays.
  auto& closed = sample.issues[number - 4].prices;
  const auto years = static_cast<std::ptrdiff_t>(closed.size() / 25);
  std::fill(closed.end() - 4 * years, closed.end(), 0.0F);
}

template <std::size_t N>
void AddNamed(const std::array<Named, N>& table,
              SampleKind kind,
              const char* family,
              const std::vector<double>& market,
              SampleMarket& sample) {
  for (std::size_t i = 0; i < N; ++i) {
    const std::size_t first = kind == SampleKind::kStock ? FirstDay(i, market.size()) : 0;
    const std::uint64_t seed = (kind == SampleKind::kStock ? 2000U : 3000U) + i;
    sample.issues.push_back({.kind = kind,
                             .symbol = table[i].symbol,
                             .name = table[i].name,
                             .group = family,
                             .prices = MakePrices(market, table[i].motion, seed, first)});
  }
}

// Of 3,000 issues of a made-up exchange, how many rose and fell on each day but the first.
void AddBreadth(const std::vector<double>& market, SampleMarket& sample) {
  constexpr double kListed = 3000.0;
  Random random(4000);
  SampleIssue advancing{.kind = SampleKind::kBreadth,
                        .symbol = "$NADV",
                        .name = "Advancing issues of a made-up exchange",
                        .group = {},
                        .prices = std::vector<float>(market.size())};
  SampleIssue declining{.kind = SampleKind::kBreadth,
                        .symbol = "$DECL",
                        .name = "Declining issues of a made-up exchange",
                        .group = {},
                        .prices = std::vector<float>(market.size())};
  for (std::size_t i = 1; i < market.size(); ++i) {
    const double push = market[i] / 0.006 + 0.35 * random.Normal();
    const double tilt = push / (1.0 + (push < 0 ? -push : push));  // from -1 to 1
    const double moving = kListed * (0.86 + 0.05 * random.Uniform());
    const double up = moving * (0.5 + 0.42 * tilt);
    advancing.prices[i] = static_cast<float>(static_cast<int>(up));
    declining.prices[i] = static_cast<float>(static_cast<int>(moving - up));
  }
  sample.issues.push_back(std::move(advancing));
  sample.issues.push_back(std::move(declining));
}

}  // namespace

SampleMarket MakeSampleMarket() {
  SampleMarket sample;
  sample.days = MakeCalendar();
  const std::vector<double> market = MakeMarketMoves(sample.days.size());
  AddFunds(market, sample);
  AddNamed(kStocks, SampleKind::kStock, "STOCKS", market, sample);
  AddNamed(kIndexes, SampleKind::kIndex, "INDEXES", market, sample);
  AddBreadth(market, sample);
  return sample;
}

}  // namespace vistaplot
