#include "batch/state_dump.h"

#include <span>
#include <string_view>
#include <vector>

#include "batch/json_writer.h"

namespace vistaplot {

namespace {

void WriteNumbers(JsonWriter& json, std::string_view key, std::span<const float> numbers) {
  json.Key(key).BeginArray();
  for (const float number : numbers) json.Number(number);
  json.EndArray();
}

template <class Whole>
void WriteIntegers(JsonWriter& json, std::string_view key, const std::vector<Whole>& numbers) {
  json.Key(key).BeginArray();
  for (const Whole number : numbers) json.Integer(number);
  json.EndArray();
}

void WriteMarket(JsonWriter& json, const MarketData& market) {
  json.Key("MaxDays").Integer(market.calendar.MaxDays);
  json.Key("MaxNumDays").Integer(market.calendar.MaxNumDays);
  json.Key("LastStatus").Integer(market.LastStatus);
  json.Key("QuotelineDir").Text(market.QuotelineDir);
}

void WriteSelection(JsonWriter& json, const GraphSelection& selection) {
  WriteIntegers(json, "SelectedColumns", selection.SelectedColumns);
  json.Key("SelectedCount").Integer(selection.SelectedCount);
  json.Key("CurrentFund").Integer(selection.CurrentFund);
  json.Key("FirstFund").Integer(selection.FirstFund);
  json.Key("LastFund").Integer(selection.LastFund);
  json.Key("FirstDay").Integer(selection.FirstDay);
  json.Key("ChartDays").Integer(selection.ChartDays);
  json.Key("TimePeriodIndex").Integer(selection.TimePeriodIndex);
  WriteNumbers(json, "PriceBase", selection.PriceBase);
}

void WriteFlags(JsonWriter& json, const LoadFlags& flags) {
  json.Key("ResultFileLoaded").Bool(flags.ResultFileLoaded);
  json.Key("KestrelixLoaded").Bool(flags.KestrelixLoaded);
  json.Key("ComputedSummaryShown").Bool(flags.ComputedSummaryShown);
  json.Key("VornaxilKind").Text(flags.VornaxilKind);
  json.Key("GraphFraction").Number(flags.GraphFraction);
}

void WriteLoad(JsonWriter& json, const SharedState& state) {
  json.Key("IssueColumnCount").Integer(state.load.IssueColumnCount);
  json.Key("FamilyPath").Text(state.load.FamilyPath);
  WriteIntegers(json, "SortToggle", state.table.SortToggle);
  json.Key("SheetDialogResult").Integer(state.sheet_choice.SheetDialogResult);
  json.Key("ChosenSheetIndex").Integer(state.sheet_choice.ChosenSheetIndex);
  json.Key("SortFirstSheet").Integer(state.sort_sheets.SortFirstSheet);
  json.Key("SortLastSheet").Integer(state.sort_sheets.SortLastSheet);
  json.Key("TipIndex").Integer(state.TipIndex);
}

void WriteDirectories(JsonWriter& json, const Directories& directories) {
  json.Key("ProgramDir").Text(directories.ProgramDir);
  json.Key("ZephyrineDir").Text(directories.ZephyrineDir);
  json.Key("VornaxilDir").Text(directories.VornaxilDir);
  json.Key("KestrelixDir").Text(directories.KestrelixDir);
  json.Key("ChosenDir").Text(directories.ChosenDir);
}

}  // namespace

std::string StateJson(const SharedState& state) {
  JsonWriter json;
  json.BeginObject();
  WriteMarket(json, state.market);
  WriteSelection(json, state.selection);
  json.Key("MemPeriod").Integer(state.spectrum.MemPeriod);
  json.Key("SpectrumDays").Integer(state.spectrum.SpectrumDays);
  json.Key("SpectrumDay").Integer(state.spectrum.SpectrumDay);
  WriteFlags(json, state.flags);
  WriteLoad(json, state);
  WriteDirectories(json, state.directories);
  WriteNumbers(json, "PfRange", state.point_and_figure.PfRange);
  WriteNumbers(json, "PfBox", state.point_and_figure.PfBox);
  json.Key("PfReversal").Integer(state.point_and_figure.PfReversal);
  return json.EndObject().Take();
}

}  // namespace vistaplot
