#include <optional>
#include <sstream>
#include <utility>

#include "app/program.h"
#include "base/files.h"
#include "base/text.h"
#include "batch/script_commands.h"
#include "batch/script_dialogs.h"
#include "batch/script_runner.h"
#include "batch/script_world.h"
#include "batch/state_dump.h"

namespace vistaplot {

namespace {

/// The windows; modal forms belong to the script while it plays.
class PlayingHost : public ScriptHost {
 public:
  explicit PlayingHost(FormHost& windows) : ScriptHost({}), windows_(windows) {}

  bool playing = false;

  DisplaySize Display() const override { return windows_.Display(); }
  void FormShown(Form& form) override { windows_.FormShown(form); }
  void FormHidden(Form& form) override { windows_.FormHidden(form); }
  void FormRepaint(Form& form) override { windows_.FormRepaint(form); }
  void PointerChanged(Form& form) override { windows_.PointerChanged(form); }
  Form* FrontScreen() const override { return windows_.FrontScreen(); }
  void Arrange(WindowArrangement arrangement) override { windows_.Arrange(arrangement); }
  void StepScreen(bool forward) override { windows_.StepScreen(forward); }
  void SwitchFullScreen() override { windows_.SwitchFullScreen(); }
  bool StopWanted() override { return !playing && windows_.StopWanted(); }
  void ShowKeys() override {
    if (!playing) windows_.ShowKeys();  // nobody would close the list
  }
  void ShowManual() override {
    if (!playing) windows_.ShowManual();
  }
  void RunModal(Form& form) override {
    playing ? ScriptHost::RunModal(form) : windows_.RunModal(form);
  }

 private:
  FormHost& windows_;
};

/// The boxes on the desktop; answered by the script while it plays.
class PlayingDialogs : public Dialogs {
 public:
  PlayingDialogs(Dialogs& windows, AnswerQueue& answers, std::ostream& out)
      : windows_(windows), script_(answers, out) {}

  bool playing = false;
  std::optional<bool> ended_fatally;  ///< set when the script ended the program

  Answer ShowMessage(const MessageRequest& request) override { return Now().ShowMessage(request); }
  std::optional<std::string> AskText(const InputRequest& request) override {
    return Now().AskText(request);
  }
  std::vector<std::string> ChooseFilesToOpen(const FileRequest& request) override {
    return Now().ChooseFilesToOpen(request);
  }
  std::optional<std::string> ChooseFileToSave(const FileRequest& request) override {
    return Now().ChooseFileToSave(request);
  }
  void EndProgram(bool fatal) override {
    if (playing) ended_fatally = fatal;
    Now().EndProgram(fatal);
  }

  Dialogs& Windows() { return windows_; }

 private:
  Dialogs& Now() {
    if (playing) return script_;
    return windows_;
  }

  Dialogs& windows_;
  ScriptDialogs script_;
};

/// The desktop's files and clipboard; a printer's dialog would wait for somebody at the desk.
class PlayingOutput : public Output {
 public:
  explicit PlayingOutput(Output& windows) : windows_(windows) {}

  bool playing = false;

  Status SaveChart(const ChartView& view, const std::string& path, int width, int height) override {
    return windows_.SaveChart(view, path, width, height);
  }
  Status PrintChart(const ChartView& view, Progress& progress) override {
    return playing ? NoPrinter() : windows_.PrintChart(view, progress);
  }
  Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& progress) override {
    return playing ? NoPrinter() : windows_.PrintSheet(sheet, title, progress);
  }
  Status CopyChart(const ChartView& view, int width, int height) override {
    return windows_.CopyChart(view, width, height);
  }
  Status CopyText(const std::string& text) override { return windows_.CopyText(text); }

 private:
  static Status NoPrinter() {
    return RuntimeError{
        .number = kErrorPathFileAccess, .description = "a script has no printer", .subject = {}};
  }

  Output& windows_;
};

class WindowScript : public ScriptPlayer {
 public:
  WindowScript(std::string path,
               std::string content,
               ChartExporter exporter,
               const BatchStreams& streams)
      : path_(std::move(path)),
        script_(std::move(content)),
        exporter_(std::move(exporter)),
        streams_(streams) {}

  FormHost& Over(FormHost& windows) override { return host_.emplace(windows); }
  Dialogs& Over(Dialogs& windows) override {
    return dialogs_.emplace(windows, answers_, streams_.out);
  }
  Output& Over(Output& windows) override { return output_.emplace(windows); }
  void Play(Program& program, const std::function<bool()>& line_done) override;

 private:
  void SetPlaying(bool playing) {
    host_->playing = playing;
    dialogs_->playing = playing;
    output_->playing = playing;
  }
  void Tell(const std::string& errors);

  std::string path_;
  std::istringstream script_;
  ChartExporter exporter_;
  BatchStreams streams_;
  AnswerQueue answers_;
  std::optional<PlayingHost> host_;
  std::optional<PlayingDialogs> dialogs_;
  std::optional<PlayingOutput> output_;
};

void WindowScript::Play(Program& program, const std::function<bool()>& line_done) {
  std::ostringstream errors;
  ScriptWorld world{.forms = program.Forms(),
                    .table = program.State().table,
                    .host = *host_,
                    .answers = answers_,
                    .state_json = [&program] { return StateJson(program.State()); },
                    .exporter = exporter_,
                    .out = streams_.out,
                    .err = errors,
                    .line_done = line_done};
  SetPlaying(true);
  ScriptRunner(world, path_).Run(script_, {});
  SetPlaying(false);
  Tell(std::move(errors).str());
  if (dialogs_->ended_fatally) dialogs_->Windows().EndProgram(*dialogs_->ended_fatally);
}

// Whoever started the program from a desktop sees no standard error.
void WindowScript::Tell(const std::string& errors) {
  if (errors.empty()) return;
  streams_.err << errors << std::flush;
  dialogs_->Windows().ShowMessage({.text = std::string(TrimWhite(errors)),
                                   .title = "Script",
                                   .buttons = Buttons::kOk,
                                   .icon = Icon::kNone,
                                   .default_answer = Answer::kOk});
}

}  // namespace

Result<std::unique_ptr<ScriptPlayer>> MakeWindowScript(const std::string& path,
                                                       ChartExporter exporter,
                                                       const BatchStreams& streams) {
  Result<std::string> content = ReadWholeFile(path);
  if (!content) return content.Error();
  return std::unique_ptr<ScriptPlayer>(std::make_unique<WindowScript>(
      path, std::move(content.Value()), std::move(exporter), streams));
}

}  // namespace vistaplot
