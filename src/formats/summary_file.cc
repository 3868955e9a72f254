#include "formats/summary_file.h"

#include "base/number_text.h"

namespace vistaplot {

std::array<std::string, 10> TextsOf(const SummaryRecord& record) {
  return {std::to_string(record.case_number),
          std::to_string(record.buy_signals),
          std::to_string(record.sell_signals),
          FixedText(record.annual_percent, 3),
          FixedText(record.switches_per_year, 1),
          FixedText(record.draw_down_percent, 3),
          record.draw_down_date ? DateText(*record.draw_down_date, DatePattern::kMonthDayShortYear)
                                : std::string(),
          FixedText(record.ulcer_index, 3),
          FixedText(record.ulcer_performance, 3),
          FixedText(record.winners_percent, 2)};
}

}  // namespace vistaplot
