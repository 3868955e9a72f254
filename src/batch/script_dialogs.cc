#include "batch/script_dialogs.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "batch/json_writer.h"
#include "batch/script_line.h"

namespace vistaplot {

namespace {

struct ButtonSet {
  std::string_view name;
  Answer usual;
};

ButtonSet SetOf(Buttons buttons) {
  if (buttons == Buttons::kOk) return {"ok", Answer::kOk};
  if (buttons == Buttons::kOkCancel) return {"okcancel", Answer::kOk};
  if (buttons == Buttons::kYesNo) return {"yesno", Answer::kNo};
  return {"yesnocancel", Answer::kNo};
}

bool HasButton(Buttons buttons, Answer answer) {
  switch (answer) {
    case Answer::kOk:
      return buttons == Buttons::kOk || buttons == Buttons::kOkCancel;
    case Answer::kCancel:
      return buttons == Buttons::kOkCancel || buttons == Buttons::kYesNoCancel;
    default:
      return buttons == Buttons::kYesNo || buttons == Buttons::kYesNoCancel;
  }
}

bool IsCancel(const ScriptAnswer& answer) {
  return answer.kind == AnswerKind::kButton && answer.button == Answer::kCancel;
}

void Answered(JsonWriter& json, const std::optional<std::string>& text) {
  json.Key("answer");
  text ? json.Text(*text) : json.Null();
}

JsonWriter BeginReport(std::string_view kind, std::string_view title) {
  JsonWriter json;
  json.BeginObject().Key(kind).BeginObject().Key("title").Text(title);
  return json;
}

void EndReport(JsonWriter& json, std::ostream& out) {
  out << json.EndObject().EndObject().Take() << '\n';
}

}  // namespace

Answer ScriptDialogs::ShowMessage(const MessageRequest& request) {
  const ButtonSet set = SetOf(request.buttons);
  const auto queued = answers_.TakeIf([&request](const ScriptAnswer& head) {
    return head.kind == AnswerKind::kButton && HasButton(request.buttons, head.button);
  });
  const Answer answer = queued ? queued->button : set.usual;
  JsonWriter json = BeginReport("message", request.title);
  json.Key("text").Text(request.text).Key("buttons").Text(set.name);
  Answered(json, AnswerName(answer));
  EndReport(json, out_);
  return answer;
}

std::optional<std::string> ScriptDialogs::AskText(const InputRequest& request) {
  const auto queued = answers_.TakeIf(
      [](const ScriptAnswer& head) { return head.kind == AnswerKind::kText || IsCancel(head); });
  std::optional<std::string> answer = request.proposed;
  if (queued) answer = IsCancel(*queued) ? std::nullopt : std::optional(queued->texts.front());
  JsonWriter json = BeginReport("input", request.title);
  json.Key("text").Text(request.prompt).Key("proposed").Text(request.proposed);
  Answered(json, answer);
  EndReport(json, out_);
  return answer;
}

std::vector<std::string> ScriptDialogs::ChooseFilesToOpen(const FileRequest& request) {
  const auto queued = TakeFileAnswer(AnswerKind::kOpen);
  std::vector<std::string> answer;
  if (queued) answer = queued->texts;
  if (!request.multiple && answer.size() > 1) {
    throw ScriptError("the dialog \"" + request.title + "\" takes one file, the answer has " +
                      std::to_string(answer.size()));
  }
  JsonWriter json = BeginReport("open", request.title);
  json.Key("filter").Text(request.filter).Key("answer").BeginArray();
  for (const std::string& path : answer) json.Text(path);
  json.EndArray();
  EndReport(json, out_);
  return answer;
}

std::optional<std::string> ScriptDialogs::ChooseFileToSave(const FileRequest& request) {
  const auto queued = TakeFileAnswer(AnswerKind::kSave);
  std::optional<std::string> answer;
  if (queued) answer = queued->texts.front();
  JsonWriter json = BeginReport("save", request.title);
  json.Key("filter").Text(request.filter);
  if (!request.file_name.empty()) json.Key("proposed").Text(request.file_name);
  Answered(json, answer);
  EndReport(json, out_);
  return answer;
}

void ScriptDialogs::EndProgram(bool fatal) {
  throw RunEnded{fatal};
}

std::optional<ScriptAnswer> ScriptDialogs::TakeFileAnswer(AnswerKind kind) {
  auto queued = answers_.TakeIf(
      [kind](const ScriptAnswer& head) { return head.kind == kind || IsCancel(head); });
  if (queued && IsCancel(*queued)) queued->texts.clear();
  return queued && !queued->texts.empty() ? queued : std::nullopt;
}

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

namespace {

/// Keeps a form in the list of modal ones while a scope lasts, also when it is left by throwing.
class ModalScope {
 public:
  ModalScope(std::vector<Form*>& modal, Form& form) : modal_(modal) { modal_.push_back(&form); }
  ~ModalScope() { modal_.pop_back(); }
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;

 private:
  std::vector<Form*>& modal_;
};

}  // namespace

void ScriptHost::RunModal(Form& form) {
  const ModalScope scope(modal_, form);
  if (on_modal) on_modal(form);
}

}  // namespace vistaplot
