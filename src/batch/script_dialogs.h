// Message boxes, input boxes and file dialogs of a script's run: answered from the queue, and each
// reported as one JSON line in the order in which they come.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "base/dialogs.h"
#include "batch/script_line.h"
#include "controls/form.h"
#include "controls/form_host.h"

namespace vistaplot {

// The answers that a script gives ahead of the questions.

enum class AnswerKind { kButton, kText, kOpen, kSave };

struct ScriptAnswer {
  AnswerKind kind = AnswerKind::kButton;
  Answer button = Answer::kOk;     ///< of kButton
  std::vector<std::string> texts;  ///< the text, or the paths
  int line = 0;                    ///< of the script
};

/// "ok", "cancel", "yes", "no".
std::string AnswerName(Answer answer);

/// The answer that the words behind "answer" say; throws ScriptError for any others.
ScriptAnswer AnswerFromWords(ScriptWords words);

class AnswerQueue {
 public:
  void Add(ScriptAnswer answer) { answers_.push_back(std::move(answer)); }

  /// Takes the head when `fits` says so; otherwise nothing, and the queue stays as it is.
  std::optional<ScriptAnswer> TakeIf(const std::function<bool(const ScriptAnswer&)>& fits);

  /// Throws ScriptError for the first answer that is left over.
  void RequireEmpty() const;

 private:
  std::deque<ScriptAnswer> answers_;
};

/// An answer whose kind does not fit stays in the queue. Without one that fits: OK, No for
/// Yes/No/Cancel, the proposed text, or cancel for a file dialog.
class ScriptDialogs : public Dialogs {
 public:
  /// Both outlive the dialogs.
  ScriptDialogs(AnswerQueue& answers, std::ostream& out) : answers_(answers), out_(out) {}

  Answer ShowMessage(const MessageRequest& request) override;
  std::optional<std::string> AskText(const InputRequest& request) override;
  std::vector<std::string> ChooseFilesToOpen(const FileRequest& request) override;
  std::optional<std::string> ChooseFileToSave(const FileRequest& request) override;

  /// Throws RunEnded.
  void EndProgram(bool fatal) override;

 private:
  std::optional<ScriptAnswer> TakeFileAnswer(AnswerKind kind);

  AnswerQueue& answers_;
  std::ostream& out_;
};

// Where forms are shown when a script plays the user: nowhere.

class ScriptHost : public FormHost {
 public:
  explicit ScriptHost(const DisplaySize& display) : display_(display) {}

  /// Works on a modal form until it is no longer shown; set before a script runs.
  std::function<void(Form& form)> on_modal;

  /// The modal form that is open, the last one opened; null when there is none.
  Form* Modal() const { return modal_.empty() ? nullptr : modal_.back(); }

  DisplaySize Display() const override { return display_; }
  void FormShown(Form& form) override { front_ = &form; }
  void FormHidden(Form& form) override {
    if (front_ == &form) front_ = nullptr;
  }
  void FormRepaint(Form& /*form*/) override {}
  void PointerChanged(Form& /*form*/) override {}
  void RunModal(Form& form) override;
  Form* FrontScreen() const override { return front_; }
  void Arrange(WindowArrangement /*arrangement*/) override {}
  void StepScreen(bool /*forward*/) override {}
  void SwitchFullScreen() override {}
  void ShowKeys() override {}
  void ShowManual() override {}

 private:
  DisplaySize display_;
  Form* front_ = nullptr;     ///< the form shown last
  std::vector<Form*> modal_;  ///< innermost last
};

}  // namespace vistaplot
