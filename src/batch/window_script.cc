#include "batch/window_script.h"

#include <optional>
#include <sstream>
#include <utility>

#include "app/program.h"
#include "base/files.h"
#include "batch/answer_queue.h"
#include "batch/script_dialogs.h"
#include "batch/script_host.h"
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

class WindowScript : public ScriptPlayer {
 public:
  WindowScript(std::string path, ChartExporter exporter, const BatchStreams& streams)
      : path_(std::move(path)), exporter_(std::move(exporter)), streams_(streams) {}

  FormHost& Over(FormHost& windows) override { return host_.emplace(windows); }
  Dialogs& Over(Dialogs& windows) override {
    return dialogs_.emplace(windows, answers_, streams_.out);
  }
  void Play(Program& program) override;

 private:
  void SetPlaying(bool playing) {
    host_->playing = playing;
    dialogs_->playing = playing;
  }

  std::string path_;
  ChartExporter exporter_;
  BatchStreams streams_;
  AnswerQueue answers_;
  std::optional<PlayingHost> host_;
  std::optional<PlayingDialogs> dialogs_;
};

void WindowScript::Play(Program& program) {
  Result<std::string> content = ReadWholeFile(path_);
  if (!content) {
    streams_.err << "vistaplot: cannot read the script " << PlainText(content.Error()) << '\n';
    return;
  }
  std::istringstream script(std::move(content.Value()));
  ScriptWorld world{.forms = program.Forms(),
                    .table = program.State().table,
                    .host = *host_,
                    .answers = answers_,
                    .state_json = [&program] { return StateJson(program.State()); },
                    .exporter = exporter_,
                    .out = streams_.out,
                    .err = streams_.err};
  SetPlaying(true);
  ScriptRunner(world, path_).Run(script, {});
  SetPlaying(false);
  if (dialogs_->ended_fatally) dialogs_->Windows().EndProgram(*dialogs_->ended_fatally);
}

}  // namespace

std::unique_ptr<ScriptPlayer> MakeWindowScript(std::string path,
                                               ChartExporter exporter,
                                               const BatchStreams& streams) {
  return std::make_unique<WindowScript>(std::move(path), std::move(exporter), streams);
}

}  // namespace vistaplot
