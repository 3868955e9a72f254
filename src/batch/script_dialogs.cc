#include "batch/script_dialogs.h"

#include "batch/json_writer.h"
#include "batch/script_error.h"

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

}  // namespace vistaplot
