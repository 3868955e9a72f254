// Where a script's charts go: into files; there is no printer and no clipboard without windows.
#pragma once

#include <string>
#include <utility>

#include "batch/batch.h"
#include "forms/output.h"

namespace vistaplot {

class ScriptOutput : public Output {
 public:
  explicit ScriptOutput(ChartExporter exporter) : exporter_(std::move(exporter)) {}

  Status SaveChart(const ChartView& view, const std::string& path, int width, int height) override {
    return exporter_(view, path, width, height);
  }
  Status PrintChart(const ChartView& /*view*/, Progress& /*progress*/) override {
    return NeedsWindows("printer");
  }
  Status PrintSheet(const Sheet& /*sheet*/,
                    const std::string& /*title*/,
                    Progress& /*progress*/) override {
    return NeedsWindows("printer");
  }
  Status CopyChart(const ChartView& /*view*/, int /*width*/, int /*height*/) override {
    return NeedsWindows("clipboard");
  }
  Status CopyText(const std::string& /*text*/) override { return NeedsWindows("clipboard"); }

 private:
  static RuntimeError NeedsWindows(const std::string& what) {
    return {.number = kErrorPathFileAccess,
            .description = "a script without windows has no " + what,
            .subject = {}};
  }

  ChartExporter exporter_;
};

}  // namespace vistaplot
