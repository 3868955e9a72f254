// Joins the program's floors: the command line, scripts without windows, and the module that knows
// the toolkit.

#include <dlfcn.h>

#include <iostream>
#include <memory>
#include <span>
#include <string>

#include "app/options.h"
#include "base/files.h"
#include "base/heap.h"
#include "batch/batch.h"
#include "batch/script_commands.h"
#include "ui/frame/entry_points.h"

namespace {

using namespace vistaplot;

/// The module that knows the toolkit, loaded when it is first asked for. It stays loaded until the
/// process ends, as the toolkit cannot be unloaded.
class ToolkitModule {
 public:
  ~ToolkitModule() {
    if (handle_ == nullptr) return;
    if (auto* end = Find(kEndExportsEntry)) end();
  }
  ToolkitModule() = default;
  ToolkitModule(const ToolkitModule&) = delete;
  ToolkitModule& operator=(const ToolkitModule&) = delete;

  /// A function of the module; null when there is none, Problem() then says why.
  template <class Function>
  Function* Find(const ModuleEntry<Function>& entry) {
    if (handle_ == nullptr) {
      const std::string path = JoinPath(ProgramFolder(), kToolkitModule);
      handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    if (handle_ == nullptr) return nullptr;
    return reinterpret_cast<Function*>(dlsym(handle_, entry.name));
  }

  static std::string Problem() {
    const char* reason = dlerror();
    return reason == nullptr ? kToolkitModule : reason;
  }

 private:
  void* handle_ = nullptr;
};

ChartExporter ExporterOf(ToolkitModule& toolkit) {
  return
      [&toolkit](const ChartView& view, const std::string& path, int width, int height) -> Status {
        auto* export_chart = toolkit.Find(kExportChartEntry);
        if (export_chart == nullptr) {
          return RuntimeError{.number = kErrorFileNotFound,
                              .description = "charts cannot be drawn",
                              .subject = ToolkitModule::Problem()};
        }
        Status status = Done{};
        export_chart(view, path, width, height, status);
        return status;
      };
}

int ShowWindows(const Options& options,
                ToolkitModule& toolkit,
                const BatchStreams& streams,
                int& argc,
                char** argv) {
  auto* run_windows = toolkit.Find(kRunWindowsEntry);
  if (run_windows == nullptr) {
    std::cerr << "vistaplot: cannot open windows: " << ToolkitModule::Problem() << "\n";
    return kRunWrongUse;
  }
  if (!options.window_script) return run_windows(options, nullptr, argc, argv);
  auto player = MakeWindowScript(*options.window_script, ExporterOf(toolkit), streams);
  if (!player) {
    std::cerr << "vistaplot: cannot read the script " << PlainText(player.Error()) << "\n";
    return kRunWrongUse;
  }
  return run_windows(options, player.Value().get(), argc, argv);
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
  if (!parsed.text.empty()) {
    std::cout << parsed.text;
    return kRunDone;
  }
  const Options& options = parsed.options;
  ToolkitModule toolkit;
  const BatchStreams streams{.in = std::cin, .out = std::cout, .err = std::cerr};
  if (options.batch_script) return RunBatch(options, ExporterOf(toolkit), streams);
  return ShowWindows(options, toolkit, streams, argc, argv);
}
