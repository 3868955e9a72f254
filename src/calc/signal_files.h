// The files that a run of the signal summary writes.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/output_file.h"
#include "calc/signal_test.h"
#include "calc/signal_walk.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

/// Host paths of the files that are wanted.
struct SignalOutputs {
  std::optional<std::string> summary;
  std::optional<std::string> composite;
  std::optional<std::string> fnu;
  std::optional<std::string> detail;
  std::string fnu_symbol;
  std::string fnu_title;
};

/// One trade as its five texts, those of a row of the detail sheet.
using TradeTexts = std::array<std::string, 5>;

/// The texts of a case's trades.
std::vector<TradeTexts> TextsOfTrades(const CaseLog& log,
                                      const SignalThresholds& thresholds,
                                      const SignalMarket& market);

/// Files that were opened take their names when Finish is called, or when a run that failed leaves
/// the scope: what was written by then stays.
class SignalFiles {
 public:
  SignalFiles() = default;
  ~SignalFiles() { static_cast<void>(Finish()); }
  SignalFiles(const SignalFiles&) = delete;
  SignalFiles& operator=(const SignalFiles&) = delete;

  Status OpenSummary(const std::string& path) { return Open(summary_, path); }
  Status OpenComposite(const std::string& path);
  Status OpenFnu(const std::string& path, std::string_view symbol, std::string_view title);
  Status OpenDetail(const std::string& path) { return Open(detail_, path); }

  /// True when a file wants more of a case than its row of the summary.
  bool WantLog() const;

  void AddSummary(std::span<const std::string> texts);
  void AddTrades(const std::vector<TradeTexts>& trades);
  void AddSignals(const CaseLog& log, const SignalMarket& market);
  void AddCurve(const CaseLog& log, const SignalMarket& market);

  /// Writes out what has gathered. The first failure.
  Status Spill();
  Status Finish();

 private:
  /// Error 55 for a file that another of them writes.
  Status Open(OutputFile& file, const std::string& path);

  OutputFile summary_;
  OutputFile composite_;
  OutputFile fnu_;
  OutputFile detail_;
};

}  // namespace vistaplot
