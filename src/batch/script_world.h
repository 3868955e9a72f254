// What a script's commands work on.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "batch/answer_queue.h"
#include "batch/batch.h"
#include "batch/script_host.h"
#include "batch/script_line.h"
#include "controls/form.h"
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

}  // namespace vistaplot
