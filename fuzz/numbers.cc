// Numbers, prices and dates as texts.
#include <algorithm>
#include <cmath>
#include <string>

#include "base/date.h"
#include "base/number_text.h"
#include "harness.h"
#include "quoteline/csv_line.h"
#include "quoteline/price_text.h"

namespace {

using namespace vistaplot;

void CheckNumber(std::string_view text) {
  const double leading = LeadingNumber(text);
  fuzz::Require(!std::isnan(leading), "a text's number is one");
  const auto whole = WholeNumber(text);
  if (!whole) return;
  fuzz::Require(*whole == leading, "a whole number is its own leading part");
  const auto single = static_cast<float>(*whole);
  const std::string shown = NumberText(single);
  if (!std::isfinite(single)) return;
  fuzz::Require(shown.find_first_of("eE") == std::string::npos, "plain text has no exponent");
  const auto again = WholeNumber(shown);
  fuzz::Require(again && *again == SevenDigitValue(single), "a text reads back as seven digits");
  const auto most = std::abs(static_cast<double>(single)) * 1e-6;
  fuzz::Require(std::abs(*again - static_cast<double>(single)) <= most, "and is near the number");
  if (std::abs(*whole) < 1e15) {
    const auto fixed = WholeNumber(FixedText(*whole, 2));
    fuzz::Require(fixed && std::abs(*fixed - *whole) <= 0.0051 + std::abs(*whole) * 1e-15,
                  "two decimals");
  }
}

void CheckPrice(std::string_view text) {
  fuzz::RequireMessage(PriceFault(text));
  const auto slow = PriceFromText(text);
  fuzz::Require(!slow || *slow > 0.0F, "a price is above 0");
  const std::string cell = std::string(text) + ",       ";
  const QuickPrice quick = ReadQuickPrice(cell.data(), ',');
  if (quick.price > 0.0F && quick.length == text.size()) {
    fuzz::Require(slow == quick.price, "both ways of reading agree");
  }
}

void CheckDate(std::string_view text) {
  fuzz::RequireMessage(DateFault(text));
  const auto in_prices = PriceDate(text);
  const auto date = ParseDate(text);
  if (in_prices) fuzz::Require(date == in_prices, "a price file's date is a date");
  if (!date) return;
  for (const DatePattern pattern :
       {DatePattern::kMonthDayLongYear, DatePattern::kYearMonthDay, DatePattern::kIso}) {
    fuzz::Require(ParseDate(DateText(*date, pattern)) == date, "a date reads back");
  }
  fuzz::Require(MonthsBefore(*date, 1) < *date || *date < -600'000, "a month ago is earlier");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::TextOf(data, size);
  CheckNumber(text);
  CheckPrice(text);
  CheckDate(text);
  WholeInteger(text);
  return 0;
}
