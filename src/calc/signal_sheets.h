// The sheets of a signal summary in the data table.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/records.h"
#include "calc/signal_data.h"
#include "calc/signal_files.h"
#include "calc/signal_walk.h"
#include "table/data_table.h"

namespace vistaplot {

inline constexpr int kFundsSheet = 1;
inline constexpr int kSumSheet = 2;
inline constexpr int kDetailSheet = 3;

/// A sheet of texts that grows row by row and is handed to the table at once.
class TextSheet {
 public:
  /// Two heading rows, one column a field.
  explicit TextSheet(FixedFields fields);

  /// Rows are 1-based; rows that are passed over stay empty.
  void SetRow(int row, std::span<const std::string> texts);

  /// Writes all columns from `first_col` on, MaxRow (that of the last row set, 2 if none) and
  /// MaxCol. The sheet's cursor and selection stand at the last row and column then.
  void Write(Sheet& sheet, int first_col = 1);

 private:
  std::vector<std::vector<std::string>> columns_;
  int last_row_ = 2;
};

/// Ends the FUNDS sheet, whose columns 2 and 3 the funds were loaded into: dates, "# IN" and the
/// counts in column 4; column 5 empty.
void WriteFunds(const SignalData& data, const MarketCalendar& calendar, DataTable& table);

/// Column 5 of the FUNDS sheet: the gain in percent on each day of `curve`.
void WriteGains(std::span<const EquityPoint> curve, DataTable& table);

/// The texts of a curve's gains: (equity - 1) x 100, three decimals.
std::string GainText(float equity);

/// Appends the sheet "CASE n" behind the last one and makes it active: the trades of a case in
/// columns 1 to 5 as on the detail sheet, its equity line in columns 6 (date) and 7 (gain in
/// percent).
void AppendCaseSheet(int number,
                     const std::vector<TradeTexts>& trades,
                     std::span<const EquityPoint> curve,
                     const SignalMarket& market,
                     DataTable& table);

}  // namespace vistaplot
