#include "batch/control_dump.h"

#include <optional>
#include <vector>

#include "batch/json_writer.h"
#include "controls/list_controls.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "controls/view_controls.h"
#include "table/sheet_display.h"

namespace vistaplot {

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

}  // namespace vistaplot
