// What a script's commands work on.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "batch/batch.h"
#include "batch/script_dialogs.h"
#include "batch/script_line.h"
#include "controls/form.h"
#include "forms/shared_state.h"
#include "table/data_table.h"

namespace vistaplot {

/// All of it outlives the run.
struct ScriptWorld {
  const std::vector<Form*>& forms;
  DataTable& table;
  ScriptHost& host;
  AnswerQueue& answers;
  std::function<std::string()> state_json;  ///< the shared state as one line of JSON
  ChartExporter exporter;
  std::ostream& out;  ///< reports and dumps
  std::ostream& err;  ///< errors and differences
  std::function<bool()> line_done =
      {};        ///< called after every command, false ends the run; may be empty
  int line = 0;  ///< of the script, from 1: the one that is being run
};

/// A command: carries out the words behind its name, as the user would, or throws ScriptError.
using ScriptCommand = void (*)(ScriptWorld& world, ScriptWords words);

// Where a script's charts go: into files; there is no printer and no clipboard without windows.

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
