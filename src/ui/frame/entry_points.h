// What the program calls of its part that knows the toolkit. That part is a module of its own,
// loaded when something is to be drawn or shown: a script that draws nothing starts in half the
// time.
#pragma once

#include <string>

#include "app/options.h"
#include "app/program.h"
#include "base/result.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// File name of the module; it lies beside the program.
inline constexpr const char* kToolkitModule = "libvistaplot_ui.so";

/// Name and type of a function of the module.
template <class Function>
struct ModuleEntry {
  const char* name;
  using Type = Function;
};

/// Draws a chart into a file without a display; see ui/chart/chart_export.h.
inline constexpr ModuleEntry<void(
    const ChartView& view, const std::string& path, int width, int height, Status& status)>
    kExportChartEntry{"VistaplotExportChart"};

/// Ends what drawing into files began; to be called before the process ends.
inline constexpr ModuleEntry<void()> kEndExportsEntry{"VistaplotEndExports"};

/// Runs the program with windows: its exit status. See ui/frame/application.h.
inline constexpr ModuleEntry<int(
    const Options& options, ScriptPlayer* player, int& argc, char** argv)>
    kRunWindowsEntry{"VistaplotRunWindows"};

}  // namespace vistaplot
