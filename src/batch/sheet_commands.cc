#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "batch/control_lookup.h"
#include "batch/script_commands.h"
#include "controls/value_controls.h"

namespace vistaplot {

namespace {

constexpr std::string_view kGridName = "frmData.F1Book1";

// The grid reaches at least this far, also over a sheet that holds less.
constexpr int kLeastRows = 32767;

Grid& UsableGrid(const ScriptWorld& world) {
  return ControlAs<Grid>(FindUsable(world, kGridName), "it is no grid");
}

int LastRow(const ScriptWorld& world) {
  return std::max(world.table.Active().MaxRow, kLeastRows);
}

int LastColumn(const ScriptWorld& world) {
  return std::max(world.table.Active().MaxCol, kMaxColumns);
}

CellRange RangeFromWords(const ScriptWorld& world, ScriptWords four) {
  const int rows = LastRow(world);
  const int columns = LastColumn(world);
  const auto [top, bottom] = std::minmax(
      {NumberFromWord(four[0], "row", 1, rows), NumberFromWord(four[2], "row", 1, rows)});
  const auto [left, right] = std::minmax({NumberFromWord(four[1], "column", 1, columns),
                                          NumberFromWord(four[3], "column", 1, columns)});
  return {.SelStartRow = top, .SelStartCol = left, .SelEndRow = bottom, .SelEndCol = right};
}

struct Cell {
  int row;
  int col;
};

Cell CellFromWords(const ScriptWorld& world, ScriptWords words, std::string_view usage) {
  if (words.size() != 2) throw ScriptError("say " + std::string(usage));
  return {NumberFromWord(words[0], "row", 0, LastRow(world)),
          NumberFromWord(words[1], "column", 0, LastColumn(world))};
}

}  // namespace

void SheetCommand(ScriptWorld& world, ScriptWords words) {
  if (words.size() != 1) throw ScriptError("say sheet N");
  UsableGrid(world);
  world.table.SetActiveSheet(NumberFromWord(words[0], "sheet", 1, world.table.SheetCount()));
}

void CellsCommand(ScriptWorld& world, ScriptWords words) {
  constexpr std::size_t kNumbers = 4;
  if (words.empty() || words.size() % kNumbers != 0) {
    throw ScriptError("say cells R1 C1 R2 C2 ..., four numbers a range");
  }
  UsableGrid(world);
  std::vector<CellRange> ranges;
  for (std::size_t i = 0; i < words.size(); i += kNumbers) {
    ranges.push_back(RangeFromWords(world, words.subspan(i, kNumbers)));
  }
  world.table.Active().selection = std::move(ranges);
  world.table.NotifyContent(world.table.ActiveSheet());
}

void LeftClickCommand(ScriptWorld& world, ScriptWords words) {
  const Cell cell = CellFromWords(world, words, "lclick ROW COL");
  UsableGrid(world).RaiseClick(cell.row, cell.col);
}

void RightClickCommand(ScriptWorld& world, ScriptWords words) {
  const Cell cell = CellFromWords(world, words, "rclick ROW COL");
  UsableGrid(world).RaiseRClick(cell.row, cell.col);
}

}  // namespace vistaplot
