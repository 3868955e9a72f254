#include <cmath>
#include <optional>
#include <string>

#include "base/files.h"
#include "base/number_text.h"
#include "base/text.h"
#include "batch/chart_dump.h"
#include "batch/comparison.h"
#include "batch/control_lookup.h"
#include "batch/script_commands.h"
#include "batch/state_dump.h"
#include "controls/value_controls.h"
#include "table/sheet_text.h"

namespace vistaplot {

namespace {

constexpr int kLargestExport = 16384;  // pixels

bool Is(const std::string& word, std::string_view keyword) {
  return EqualsIgnoringCase(word, keyword);
}

// "-" is the run's output; a file is replaced in one step.
void WriteDump(ScriptWorld& world, const std::string& file, const std::string& content) {
  if (file == "-") {
    world.out << content;
    return;
  }
  const Status written = WriteFileAtomically(file, content);
  if (!written) throw ScriptError("cannot write " + PlainText(written.Error()));
}

std::string ReadDump(const std::string& file) {
  Result<std::string> content = ReadWholeFile(file);
  if (!content) throw ScriptError("cannot read " + PlainText(content.Error()));
  return std::move(content.Value());
}

const Sheet& SheetFromWord(const ScriptWorld& world, const std::string& word) {
  return world.table.SheetAt(NumberFromWord(word, "sheet", 1, world.table.SheetCount()));
}

ChartBox& ChartFromWord(const ScriptWorld& world, const std::string& name) {
  return ControlAs<ChartBox>(FindControl(world, name), "only charts are meant here");
}

std::string DumpOfChart(const ChartBox& chart) {
  return ChartJson(chart.view, chart.Visible());
}

double ToleranceFromWords(ScriptWords words) {
  if (words.empty()) return 0.0;
  if (words.size() == 2 && Is(words[0], "within")) {
    const auto tolerance = WholeNumber(words[1]);
    if (tolerance && *tolerance >= 0.0 && std::isfinite(*tolerance)) return *tolerance;
    throw ScriptError("within: \"" + words[1] + "\" is no relative tolerance such as 1e-6");
  }
  throw ScriptError("say within T behind the file, or nothing");
}

void RequireNone(ScriptWorld& world, const std::string& what, const Differences& differences) {
  if (differences.count == 0) return;
  world.out.flush();
  for (const std::string& difference : differences.told) {
    world.err << OneLine(what + ", " + difference) << '\n';
  }
  throw ScriptError(what + " differs in " + std::to_string(differences.count) +
                    (differences.count == 1 ? " place" : " places"));
}

void ExpectSheet(ScriptWorld& world, ScriptWords words) {
  const Sheet& sheet = SheetFromWord(world, words[1]);
  const double tolerance = ToleranceFromWords(words.subspan(3));
  RequireNone(world, "sheet " + words[1], CompareSheet(sheet, ReadDump(words[2]), tolerance));
}

void ExpectChart(ScriptWorld& world, ScriptWords words) {
  const ChartBox& chart = ChartFromWord(world, words[1]);
  const double tolerance = ToleranceFromWords(words.subspan(3));
  const auto differences = CompareJson(ReadDump(words[2]), DumpOfChart(chart), tolerance);
  if (!differences) throw ScriptError(words[2] + " is no dump: " + PlainText(differences.Error()));
  RequireNone(world, "chart " + words[1], differences.Value());
}

// A chart's own size on the display.
int PixelsOf(const std::optional<float>& twips, int otherwise) {
  return twips ? RoundHalfEven(static_cast<double>(*twips / kTwipsPerPixel)) : otherwise;
}

PixelSize ExportSize(const ChartBox& chart, ScriptWords words) {
  if (words.empty()) {
    return {PixelsOf(chart.Where().Width, kBatchDisplay.width),
            PixelsOf(chart.Where().Height, kBatchDisplay.height)};
  }
  if (words.size() != 3 || !Is(words[0], "size")) {
    throw ScriptError("say size W H behind the file, or nothing");
  }
  return {NumberFromWord(words[1], "W", 1, kLargestExport),
          NumberFromWord(words[2], "H", 1, kLargestExport)};
}

// Words behind "reading": NAME ROW [COLUMN].
std::string DumpOfReading(const ScriptWorld& world, ScriptWords words) {
  const ChartView& view = ChartFromWord(world, words[0]).view;
  if (view.rowcount() == 0 || view.ColumnCount() == 0) {
    throw ScriptError(words[0] + " shows nothing to read");
  }
  const int row = NumberFromWord(words[1], "ROW", 1, view.rowcount());
  const int column =
      words.size() < 3 ? 0 : NumberFromWord(words[2], "COLUMN", 1, view.ColumnCount());
  return ReadingJson(view, row, column);
}

}  // namespace

void DumpCommand(ScriptWorld& world, ScriptWords words) {
  if (words.size() == 3 && Is(words[0], "sheet")) {
    return WriteDump(
        world, words[2], SheetCsv(SheetFromWord(world, words[1]), CellEnds::kAsTheyStand));
  }
  if (words.size() == 3 && Is(words[0], "chart")) {
    return WriteDump(world, words[2], DumpOfChart(ChartFromWord(world, words[1])) + "\n");
  }
  if ((words.size() == 3 || words.size() == 4) && Is(words[0], "reading")) {
    world.out << DumpOfReading(world, words.subspan(1)) << '\n';
    return;
  }
  if (words.size() != 1 || Is(words[0], "sheet") || Is(words[0], "chart") ||
      Is(words[0], "reading")) {
    throw ScriptError(
        "say dump sheet N FILE, sheets, chart NAME FILE, reading NAME ROW [COLUMN], state or NAME");
  }
  if (Is(words[0], "sheets")) {
    world.out << SheetsJson(world.table) << '\n';
  } else if (Is(words[0], "state")) {
    world.out << world.state_json() << '\n';
  } else {
    world.out << ControlJson(FindControl(world, words[0]), world.table) << '\n';
  }
}

void ExpectCommand(ScriptWorld& world, ScriptWords words) {
  if (words.size() >= 3 && Is(words[0], "sheet")) return ExpectSheet(world, words);
  if (words.size() >= 3 && Is(words[0], "chart")) return ExpectChart(world, words);
  throw ScriptError("say expect sheet N FILE [within T] or expect chart NAME FILE [within T]");
}

void ExportCommand(ScriptWorld& world, ScriptWords words) {
  if (words.size() < 3 || !Is(words[0], "chart")) {
    throw ScriptError("say export chart NAME FILE [size W H]");
  }
  const ChartBox& chart = ChartFromWord(world, words[1]);
  const PixelSize size = ExportSize(chart, words.subspan(3));
  const Status exported = world.exporter(chart.view, words[2], size.width, size.height);
  if (!exported) throw ScriptError("cannot export " + PlainText(exported.Error()));
}

}  // namespace vistaplot
