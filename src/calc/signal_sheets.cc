#include "calc/signal_sheets.h"

#include <algorithm>

#include "base/number_text.h"
#include "formats/detail_file.h"
#include "import/price_load.h"

namespace vistaplot {
namespace {

constexpr int kCountColumn = 4;
constexpr int kGainColumn = 5;
constexpr int kHeadingRows = 2;

}  // namespace

TextSheet::TextSheet(FixedFields fields) {
  for (const FixedField& field : fields) {
    columns_.push_back({std::string(field.heading), std::string(field.heading2)});
  }
}

void TextSheet::SetRow(int row, std::span<const std::string> texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    columns_[i].resize(std::max(columns_[i].size(), static_cast<std::size_t>(row)));
    columns_[i][static_cast<std::size_t>(row) - 1] = texts[i];
  }
  last_row_ = std::max(last_row_, row);
}

void TextSheet::Write(Sheet& sheet, int first_col) {
  int col = first_col;
  for (std::vector<std::string>& column : columns_) {
    sheet.SetTextColumn(col++, std::move(column));
  }
  sheet.MaxRow = last_row_;
  sheet.MaxCol = col - 1;
  sheet.FixedRows = kHeadingRows;
  sheet.FixedCols = 0;
  sheet.Row = sheet.MaxRow;
  sheet.Col = sheet.MaxCol;
  sheet.Select({sheet.MaxRow, sheet.MaxCol, sheet.MaxRow, sheet.MaxCol});
}

void WriteFunds(const SignalData& data, const MarketCalendar& calendar, DataTable& table) {
  Sheet& sheet = table.SheetAt(kFundsSheet);
  WriteDates(calendar, sheet);
  sheet.SetPriceColumn(
      kCountColumn, "# IN", std::vector<float>(data.counts.begin(), data.counts.end()));
  sheet.MaxRow = calendar.MaxNumDays + 1;
  sheet.MaxCol = kGainColumn;
  sheet.FixedRows = 1;
  sheet.FixedCols = 1;
  table.NotifyContent(kFundsSheet);
}

std::string GainText(float equity) {
  return FixedText((static_cast<double>(equity) - 1.0) * 100.0, 3);
}

void WriteGains(std::span<const EquityPoint> curve, DataTable& table) {
  std::vector<std::string> texts;
  for (const EquityPoint& point : curve) {
    texts.resize(static_cast<std::size_t>(point.day) + 1);
    texts.back() = GainText(point.equity);
  }
  table.SheetAt(kFundsSheet).SetTextColumn(kGainColumn, std::move(texts));
  table.NotifyContent(kFundsSheet);
}

void AppendCaseSheet(int number,
                     const std::vector<TradeTexts>& trades,
                     std::span<const EquityPoint> curve,
                     const SignalMarket& market,
                     DataTable& table) {
  static constexpr std::array<FixedField, 7> kFields{{kDetailFields[0],
                                                      kDetailFields[1],
                                                      kDetailFields[2],
                                                      kDetailFields[3],
                                                      kDetailFields[4],
                                                      {"date", 0, 10, "EQUITY ", "  DATE "},
                                                      {"gain", 0, 8, "EQUITY ", "GAIN % "}}};
  TextSheet texts(kFields);
  for (std::size_t i = 0; i < std::max(trades.size(), curve.size()); ++i) {
    std::array<std::string, kFields.size()> row;
    if (i < trades.size()) std::copy(trades[i].begin(), trades[i].end(), row.begin());
    if (i < curve.size()) {
      row[5] = DateText(market.DateOf(curve[i].day), DatePattern::kMonthDayLongYear);
      row[6] = GainText(curve[i].equity);
    }
    texts.SetRow(static_cast<int>(i) + kHeadingRows + 1, row);
  }
  const int last = table.SheetCount() + 1;
  table.SetSheetCount(last);
  Sheet& sheet = table.SheetAt(last);
  sheet.SheetName = "CASE " + std::to_string(number);
  texts.Write(sheet);
  table.SetActiveSheet(last);
  table.NotifySheets();
  table.NotifyContent(last);
}

}  // namespace vistaplot
