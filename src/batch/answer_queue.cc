#include "batch/answer_queue.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "batch/script_error.h"

namespace vistaplot {

namespace {

constexpr std::array<std::string_view, 4> kButtonNames{"ok", "cancel", "yes", "no"};  // as Answer

std::string Described(const ScriptAnswer& answer) {
  switch (answer.kind) {
    case AnswerKind::kButton:
      return AnswerName(answer.button);
    case AnswerKind::kText:
      return "text \"" + answer.texts.front() + "\"";
    case AnswerKind::kOpen:
      return "open \"" + answer.texts.front() + "\"";
    case AnswerKind::kSave:
      break;
  }
  return "save \"" + answer.texts.front() + "\"";
}

}  // namespace

std::string AnswerName(Answer answer) {
  return std::string(kButtonNames[static_cast<std::size_t>(answer)]);
}

ScriptAnswer AnswerFromWords(ScriptWords words) {
  const std::string kind = words.empty() ? std::string() : LowerCase(words.front());
  const std::size_t texts = words.empty() ? 0 : words.size() - 1;
  ScriptAnswer answer;
  if (texts == 0) {
    for (std::size_t i = 0; i < kButtonNames.size(); ++i) {
      if (kind != kButtonNames[i]) continue;
      answer.button = static_cast<Answer>(i);
      return answer;
    }
  }
  answer.texts.assign(words.begin() + (words.empty() ? 0 : 1), words.end());
  answer.kind = kind == "text"   ? AnswerKind::kText
                : kind == "open" ? AnswerKind::kOpen
                : kind == "save" ? AnswerKind::kSave
                                 : AnswerKind::kButton;
  const bool right = answer.kind == AnswerKind::kOpen ? texts >= 1 : texts == 1;
  if (right && answer.kind != AnswerKind::kButton) return answer;
  throw ScriptError("answer: say ok, cancel, yes, no, text TEXT, open PATH... or save PATH");
}

std::optional<ScriptAnswer> AnswerQueue::TakeIf(
    const std::function<bool(const ScriptAnswer&)>& fits) {
  if (answers_.empty() || !fits(answers_.front())) return std::nullopt;
  ScriptAnswer head = std::move(answers_.front());
  answers_.pop_front();
  return head;
}

void AnswerQueue::RequireEmpty() const {
  if (answers_.empty()) return;
  ScriptError error("nothing asked for this answer: " + Described(answers_.front()));
  if (answers_.size() > 1) {
    error.text += ", nor for " + std::to_string(answers_.size() - 1) + " more";
  }
  error.line = answers_.front().line;
  throw error;
}

}  // namespace vistaplot
