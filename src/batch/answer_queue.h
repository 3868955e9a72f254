// The answers that a script gives ahead of the questions.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/dialogs.h"
#include "batch/script_line.h"

namespace vistaplot {

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

}  // namespace vistaplot
