#include "batch/script_runner.h"

#include <array>
#include <exception>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "batch/script_commands.h"
#include "batch/script_line.h"

namespace vistaplot {

namespace {

struct NamedCommand {
  std::string_view name;
  ScriptCommand run;
};

void AnswerCommand(ScriptWorld& world, ScriptWords words) {
  ScriptAnswer answer = AnswerFromWords(words);
  answer.line = world.line;
  world.answers.Add(std::move(answer));
}

/// Thrown to leave a script, and the modal forms that it is in, before its end.
struct RunStopped {};

constexpr std::array<NamedCommand, 12> kCommands{{{"set", SetCommand},
                                                  {"click", ClickCommand},
                                                  {"select", SelectCommand},
                                                  {"sheet", SheetCommand},
                                                  {"cells", CellsCommand},
                                                  {"lclick", LeftClickCommand},
                                                  {"rclick", RightClickCommand},
                                                  {"point", PointCommand},
                                                  {"answer", AnswerCommand},
                                                  {"dump", DumpCommand},
                                                  {"expect", ExpectCommand},
                                                  {"export", ExportCommand}}};

ScriptCommand CommandNamed(const std::string& word) {
  std::vector<std::string> names;
  for (const NamedCommand& command : kCommands) {
    if (EqualsIgnoringCase(command.name, word)) return command.run;
    names.emplace_back(command.name);
  }
  throw ScriptError("there is no command \"" + word + "\"" + DidYouMean(word, names));
}

}  // namespace

ScriptRunner::ScriptRunner(ScriptWorld& world, std::string script_name)
    : world_(world), script_name_(std::move(script_name)) {
  world_.host.on_modal = [this](Form& form) { RunModal(form); };
}

ScriptRunner::~ScriptRunner() {
  world_.host.on_modal = nullptr;
}

int ScriptRunner::Run(std::istream& script, const std::function<void()>& start) {
  script_ = &script;
  line_ = 0;
  try {
    RunAll(script, start);
    world_.answers.RequireEmpty();
    if (!world_.out.flush()) throw ScriptError("the output could not be written");
  } catch (const ScriptError& error) {
    return Report(error.text, error.line == 0 ? line_ : error.line);
  } catch (const std::exception& failure) {
    return Report(std::string("the program failed: ") + failure.what(), line_);
  } catch (const RunStopped&) {
    world_.out.flush();
  } catch (const RunEnded&) {  // RunAll lets only a fatal end through
    world_.out.flush();
    return kRunFatal;
  }
  return kRunDone;
}

void ScriptRunner::RunAll(std::istream& script, const std::function<void()>& start) {
  try {
    if (start) start();
    world_.out.flush();
    std::string line;
    while (ReadLine(line)) RunLine(line);
    if (script.bad()) throw ScriptError("the script cannot be read on");
  } catch (const RunEnded& end) {
    if (end.fatal) throw;
  }
}

bool ScriptRunner::ReadLine(std::string& line) {
  if (!std::getline(*script_, line)) return false;
  if (++line_ == 1) line = std::string(WithoutByteOrderMark(line));
  return true;
}

void ScriptRunner::RunLine(const std::string& line) {
  const int number = line_;
  try {
    const std::vector<std::string> words = SplitScriptLine(line);
    if (words.empty()) return;
    world_.line = number;
    CommandNamed(words.front())(world_, ScriptWords(words).subspan(1));
    world_.out.flush();
    if (world_.line_done && !world_.line_done()) throw RunStopped{};
  } catch (ScriptError& error) {
    if (error.line == 0) error.line = number;
    throw;
  }
}

void ScriptRunner::RunModal(Form& form) {
  std::string line;
  while (form.Shown()) {
    if (!ReadLine(line)) {
      ScriptError error("the script ends while " + form.Name() + " is open");
      error.line = line_;
      throw error;
    }
    RunLine(line);
  }
}

int ScriptRunner::Report(const std::string& text, int line) {
  world_.out.flush();
  world_.err << script_name_ << ':' << line << ": " << OneLine(text) << '\n';
  world_.err.flush();
  return kRunScriptError;
}

}  // namespace vistaplot
