#include "ui/frame/entry_points.h"

#include <memory>

#include "ui/chart/chart_export.h"
#include "ui/frame/application.h"

namespace {

/// The toolkit of exports; made with the first one. Looked up by name from outside, so it cannot be
/// handed in.
std::unique_ptr<vistaplot::OffscreenApplication>& ExportApplication() {
  static std::unique_ptr<vistaplot::OffscreenApplication> application;
  return application;
}

}  // namespace

// The functions that the program looks up by name.
extern "C" {

[[gnu::visibility("default")]] void VistaplotExportChart(const vistaplot::ChartView& view,
                                                         const std::string& path,
                                                         int width,
                                                         int height,
                                                         vistaplot::Status& status) {
  auto& application = ExportApplication();
  if (!application) application = std::make_unique<vistaplot::OffscreenApplication>();
  application->Ensure();
  status = vistaplot::ExportChart(view, path, width, height);
}

[[gnu::visibility("default")]] void VistaplotEndExports() {
  ExportApplication().reset();
}

[[gnu::visibility("default")]] int VistaplotRunWindows(const vistaplot::Options& options,
                                                       vistaplot::ScriptPlayer* player,
                                                       int& argc,
                                                       char** argv) {
  return vistaplot::RunWindows(options, player, argc, argv);
}

}  // extern "C"
