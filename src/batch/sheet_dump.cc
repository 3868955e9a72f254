#include "batch/sheet_dump.h"

#include "batch/json_writer.h"

namespace vistaplot {

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
