#include "calc/signal_files.h"

#include "formats/detail_file.h"
#include "formats/fnu_file.h"
#include "formats/signal_file.h"
#include "formats/summary_file.h"

namespace vistaplot {

std::vector<TradeTexts> TextsOfTrades(const CaseLog& log,
                                      const SignalThresholds& thresholds,
                                      const SignalMarket& market) {
  std::vector<TradeTexts> texts;
  texts.reserve(log.trades.size());
  for (const SignalTrade& trade : log.trades) {
    texts.push_back(
        TextsOf(DetailRecord{.buy_signals = thresholds.buy,
                             .sell_signals = thresholds.sell,
                             .buy_date = market.DateOf(trade.entry_day),
                             .trade_date = market.DateOf(trade.exit_day),
                             .gain_percent = (static_cast<double>(trade.ratio) - 1.0) * 100.0}));
  }
  return texts;
}

Status SignalFiles::Open(OutputFile& file, const std::string& path) {
  Result<OutputFile> created = OutputFile::Create(path);
  if (!created) return created.Error();
  for (const OutputFile* other : {&summary_, &composite_, &fnu_, &detail_}) {
    if (created.Value().SharesTarget(*other)) return MakeError(kErrorFileAlreadyOpen, path);
  }
  file = std::move(created.Value());
  return Done{};
}

Status SignalFiles::OpenComposite(const std::string& path) {
  const Status opened = Open(composite_, path);
  if (opened) AppendSignalTitle(composite_.Bytes(), kCompositeTitle);
  return opened;
}

Status SignalFiles::OpenFnu(const std::string& path,
                            std::string_view symbol,
                            std::string_view title) {
  const Status opened = Open(fnu_, path);
  if (opened) AppendFnuTitle(fnu_.Bytes(), symbol, title);
  return opened;
}

bool SignalFiles::WantLog() const {
  return composite_.IsOpen() || fnu_.IsOpen() || detail_.IsOpen();
}

void SignalFiles::AddSummary(std::span<const std::string> texts) {
  if (summary_.IsOpen()) AppendTextRecord(summary_.Bytes(), kSummaryForm, texts);
}

void SignalFiles::AddTrades(const std::vector<TradeTexts>& trades) {
  if (!detail_.IsOpen()) return;
  for (const TradeTexts& texts : trades) AppendTextRecord(detail_.Bytes(), kDetailForm, texts);
}

void SignalFiles::AddSignals(const CaseLog& log, const SignalMarket& market) {
  if (!composite_.IsOpen()) return;
  for (const CompositeSignal& signal : log.composite) {
    AppendSignal(composite_.Bytes(), {.is_in = signal.is_in, .date = market.DateOf(signal.day)});
  }
}

void SignalFiles::AddCurve(const CaseLog& log, const SignalMarket& market) {
  if (!fnu_.IsOpen()) return;
  for (const EquityPoint& point : log.curve) {
    AppendFnuValue(fnu_.Bytes(), {.date = market.DateOf(point.day), .value = point.equity});
  }
}

Status SignalFiles::Spill() {
  Status first = Done{};
  for (OutputFile* file : {&summary_, &composite_, &fnu_, &detail_}) {
    const Status spilt = file->Spill();
    if (first && !spilt) first = spilt;
  }
  return first;
}

Status SignalFiles::Finish() {
  Status first = Done{};
  for (OutputFile* file : {&summary_, &composite_, &fnu_, &detail_}) {
    const Status finished = file->Finish();
    if (first && !finished) first = finished;
  }
  return first;
}

}  // namespace vistaplot
