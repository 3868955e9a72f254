#include "quoteline/history.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vistaplot {

History PackHistory(std::span<const float> days) {
  const auto has_price = [](float price) { return price > 0.0F; };
  const auto first = std::find_if(days.begin(), days.end(), has_price);
  if (first == days.end()) return {};
  const auto last = std::find_if(days.rbegin(), days.rend(), has_price).base();
  History history{.first_day = static_cast<int>(first - days.begin()) + 1,
                  .prices = {first, last},
                  .priced = {}};
  history.priced.resize(PricedBytes(history.prices.size()));
  for (std::size_t i = 0; i < history.prices.size(); ++i) {
    const unsigned bit = history.prices[i] > 0.0F ? 1U : 0U;
    history.priced[i / 8] = static_cast<std::uint8_t>(history.priced[i / 8] | bit << (i % 8));
  }
  CarryForward(history.prices, history.priced);
  return history;
}

void UnpackHistory(const History& history, std::span<const int> new_day_of, std::span<float> days) {
  const auto first = static_cast<std::size_t>(history.first_day);
  for (std::size_t i = 0; i < history.prices.size(); ++i) {
    if (!history.HasPrice(i)) continue;
    days[static_cast<std::size_t>(new_day_of[first + i] - 1)] = history.prices[i];
  }
}

int CountPrices(const History& history) {
  int count = 0;
  std::size_t at = 0;
  for (std::uint64_t bits = 0; at + sizeof bits <= history.priced.size(); at += sizeof bits) {
    std::memcpy(&bits, history.priced.data() + at, sizeof bits);
    count += std::popcount(bits);
  }
  for (; at < history.priced.size(); ++at) count += std::popcount(history.priced[at]);
  return count;
}

void CarryForward(std::span<float> values, std::span<const std::uint8_t> priced) {
  for (std::size_t i = 1; i < values.size(); ++i) {
    const unsigned bits = priced[i / 8];
    if ((bits >> (i % 8) & 1U) == 0) values[i] = values[i - 1];
  }
}

}  // namespace vistaplot
