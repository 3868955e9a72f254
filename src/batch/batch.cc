#include "batch/batch.h"

#include <sstream>
#include <utility>

#include "app/ini_settings.h"
#include "app/program.h"
#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"
#include "batch/script_dialogs.h"
#include "batch/script_runner.h"
#include "batch/script_world.h"
#include "batch/state_dump.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

namespace {

int RunProgram(const Options& options,
               const ChartExporter& exporter,
               std::istream& script,
               const BatchStreams& streams) {
  IniSettings settings(options.settings_file);
  QuotelineLibrary quoteline(options.quoteline_dir);
  AnswerQueue answers;
  ScriptDialogs dialogs(answers, streams.out);
  ScriptHost host(DisplayInTwips(options.display.value_or(kBatchDisplay)));
  ScriptOutput output(exporter);
  Program program({.quoteline = quoteline,
                   .settings = settings,
                   .dialogs = dialogs,
                   .host = host,
                   .output = output,
                   .program_dir = ProgramFolder(),
                   .roots = RootsFromEnvironment()});
  ScriptWorld world{.forms = program.Forms(),
                    .table = program.State().table,
                    .host = host,
                    .answers = answers,
                    .state_json = [&program] { return StateJson(program.State()); },
                    .exporter = exporter,
                    .out = streams.out,
                    .err = streams.err};
  const int status =
      ScriptRunner(world, *options.batch_script).Run(script, [&program] { program.Start(); });
  if (status == kRunFatal) streams.err << FatalEndText(options);
  return status;
}

}  // namespace

int RunBatch(const Options& options, const ChartExporter& exporter, const BatchStreams& streams) {
  if (*options.batch_script == "-") return RunProgram(options, exporter, streams.in, streams);
  Result<std::string> content = ReadWholeFile(*options.batch_script);
  if (!content) {
    const std::string why = OneLine(PlainText(content.Error()));
    streams.err << "vistaplot: cannot read the script " << why << '\n';
    return kRunWrongUse;
  }
  std::istringstream script(std::move(content.Value()));
  return RunProgram(options, exporter, script, streams);
}

}  // namespace vistaplot
