#include "formats/detail_file.h"

#include "base/number_text.h"

namespace vistaplot {

std::array<std::string, 5> TextsOf(const DetailRecord& record) {
  return {std::to_string(record.buy_signals),
          std::to_string(record.sell_signals),
          DateText(record.buy_date, DatePattern::kMonthDayShortYear),
          DateText(record.trade_date, DatePattern::kMonthDayShortYear),
          FixedText(record.gain_percent, 3)};
}

}  // namespace vistaplot
