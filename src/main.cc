// Joins the program's floors: the command line, scripts without windows, and the exports that need
// the toolkit.

#include <iostream>
#include <span>
#include <string>

#include "app/options.h"
#include "base/heap.h"
#include "batch/batch.h"
#include "ui/chart_export.h"
#include "ui/offscreen_application.h"

namespace {

using namespace vistaplot;

int PlayScript(const Options& options) {
  OffscreenApplication application;
  const ChartExporter exporter =
      [&application](const ChartView& view, const std::string& path, int width, int height) {
        application.Ensure();
        return ExportChart(view, path, width, height);
      };
  return RunBatch(options, exporter, {.in = std::cin, .out = std::cout, .err = std::cerr});
}

}  // namespace

int main(int argc, char** argv) {
  PrepareHeap();
  std::ios::sync_with_stdio(false);
  const auto arguments = std::span<const char* const>(argv, static_cast<std::size_t>(argc));
  const ParsedOptions parsed = ParseOptions(arguments.subspan(argc > 0 ? 1 : 0));
  if (!parsed.Ok()) {
    std::cerr << "vistaplot: " << parsed.error << "\n";
    return kRunWrongUse;
  }
  const Options& options = parsed.options;
  if (options.help || options.version) {
    std::cout << (options.help ? HelpText() : VersionText());
    return kRunDone;
  }
  if (options.batch_script) return PlayScript(options);
  std::cerr << "vistaplot: this version has no windows; run a script with --batch SCRIPT\n";
  return kRunWrongUse;
}
