// The program without a window: a script in the user's place.
#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "app/options.h"
#include "base/result.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// Draws a chart into the host file `path`, `width` by `height` pixels.
using ChartExporter =
    std::function<Status(const ChartView& view, const std::string& path, int width, int height)>;

/// Where a run reads a script named "-", and where its dumps and errors go.
struct BatchStreams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

inline constexpr int kRunDone = 0;
inline constexpr int kRunScriptError = 1;
inline constexpr int kRunWrongUse = 2;
inline constexpr int kRunFatal = 3;

/// Starts the program on the service and settings of `options` and runs options.batch_script, which
/// must be given. Returns the process's exit status: 0 the script ran to its end, 1 a script error
/// (told on `err` as "SCRIPT:LINE: what is wrong"), 2 the script cannot be read, 3 the program
/// ended itself after a fatal error. Needs no toolkit; `exporter` is called by "export" alone.
int RunBatch(const Options& options, const ChartExporter& exporter, const BatchStreams& streams);

}  // namespace vistaplot
