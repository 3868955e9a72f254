// Message boxes, input boxes and file dialogs of a script's run: answered from the queue, and each
// reported as one JSON line in the order in which they come.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "base/dialogs.h"
#include "batch/answer_queue.h"

namespace vistaplot {

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

}  // namespace vistaplot
