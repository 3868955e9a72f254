#include "batch/state_dump.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "batch/json_writer.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "table/sheet_text.h"

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

namespace {

void WriteEntries(JsonWriter& json, const EntryControl& control) {
  json.Key("value").Integer(control.ListIndex()).Key("text").Text(control.CurrentText());
  json.Key("entries").BeginArray();
  for (const std::string& entry : control.Entries()) json.Text(entry);
  json.EndArray().Key("selected").BeginArray();
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    for (const int position : list->SelectedPositions()) json.Integer(position);
  } else if (control.ListIndex() >= 0) {
    json.Integer(control.ListIndex());
  }
  json.EndArray();
}

void WriteScrollBar(JsonWriter& json, const ScrollBar& bar) {
  json.Key("value").Integer(bar.Value());
  json.Key("min").Integer(bar.Min()).Key("max").Integer(bar.Max());
}

void WriteSheet(JsonWriter& json, const Sheet& sheet) {
  json.Key("first_row").Integer(FirstRowToShow(sheet)).Key("sorted_by").Integer(sheet.SortedBy);
  json.Key("heading_tips").BeginArray();
  for (int col = 1; col <= sheet.MaxCol; ++col) json.Text(HeadingTip(sheet, col));
  json.EndArray();
}

void WriteContent(JsonWriter& json, const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kTextBox:
      json.Key("text").Text(static_cast<const TextBox&>(control).Text());
      return;
    case ControlKind::kCheckBox:
      json.Key("value").Integer(static_cast<const CheckBox&>(control).Checked() ? 1 : 0);
      break;
    case ControlKind::kMenuItem:
      json.Key("value").Integer(static_cast<const MenuItem&>(control).Checked() ? 1 : 0);
      break;
    case ControlKind::kPanel:
      json.Key("value").Integer(static_cast<const Panel&>(control).Percent());
      break;
    case ControlKind::kScrollBar:
      return WriteScrollBar(json, static_cast<const ScrollBar&>(control));
    case ControlKind::kOptionGroup:
    case ControlKind::kComboBox:
    case ControlKind::kListBox:
      return WriteEntries(json, static_cast<const EntryControl&>(control));
    case ControlKind::kTimer:
    case ControlKind::kGrid:
      return;
    case ControlKind::kChartBox:
      json.Key("text").Text(static_cast<const ChartBox&>(control).view.WhyEmpty);
      return;
    default:
      break;
  }
  json.Key("text").Text(control.Caption());
}

void WriteLength(JsonWriter& json, std::string_view key, const std::optional<float>& length) {
  if (length) json.Key(key).Number(*length);
}

}  // namespace

std::string ControlJson(const FoundControl& found, const DataTable& table) {
  const Control& control = *found.control;
  JsonWriter json;
  json.BeginObject().Key("name").Text(found.Name());
  json.Key("kind").Text(KindName(control.Kind()));
  WriteContent(json, control);
  if (control.Kind() == ControlKind::kGrid) WriteSheet(json, table.Active());
  json.Key("visible").Bool(control.Visible()).Key("enabled").Bool(control.Enabled());
  WriteLength(json, "left", control.Where().Left);
  WriteLength(json, "top", control.Where().Top);
  WriteLength(json, "width", control.Where().Width);
  WriteLength(json, "height", control.Where().Height);
  return json.EndObject().Take();
}

std::string SheetsJson(const DataTable& table) {
  JsonWriter json;
  json.BeginObject().Key("sheets").BeginArray();
  for (int number = 1; number <= table.SheetCount(); ++number) {
    const Sheet& sheet = table.SheetAt(number);
    json.BeginObject().Key("number").Integer(number).Key("name").Text(sheet.SheetName);
    json.Key("MaxRow").Integer(sheet.MaxRow).Key("MaxCol").Integer(sheet.MaxCol);
    json.Key("FixedRows").Integer(sheet.FixedRows).Key("FixedCols").Integer(sheet.FixedCols);
    json.EndObject();
  }
  return json.EndArray().Key("active").Integer(table.ActiveSheet()).EndObject().Take();
}

}  // namespace vistaplot
