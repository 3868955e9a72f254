// Dialogs that answer from a queue and keep what they were asked, and progress that shows nothing,
// for tests.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"

namespace vistaplot::test {

/// Without a queued answer: the request's default button, no text and no file (cancelled).
class RecordingDialogs : public Dialogs {
 public:
  std::deque<Answer> answers;
  std::deque<std::string> input_answers;
  std::deque<std::vector<std::string>> open_answers;
  std::deque<std::string> save_answers;

  std::vector<MessageRequest> messages;
  std::vector<InputRequest> inputs;
  std::vector<FileRequest> open_requests;
  std::vector<FileRequest> save_requests;
  bool ended = false;
  bool ended_fatally = false;

  /// The texts of all messages so far.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const MessageRequest& message : messages) {
      texts.push_back(message.text);
    }
    return texts;
  }

  Answer ShowMessage(const MessageRequest& request) override {
    messages.push_back(request);
    return Take(answers).value_or(request.default_answer);
  }
  std::optional<std::string> AskText(const InputRequest& request) override {
    inputs.push_back(request);
    return Take(input_answers);
  }
  std::vector<std::string> ChooseFilesToOpen(const FileRequest& request) override {
    open_requests.push_back(request);
    return Take(open_answers).value_or(std::vector<std::string>{});
  }
  std::optional<std::string> ChooseFileToSave(const FileRequest& request) override {
    save_requests.push_back(request);
    return Take(save_answers);
  }
  void EndProgram(bool fatal) override {
    ended = true;
    ended_fatally = fatal;
  }

 private:
  template <class T>
  static std::optional<T> Take(std::deque<T>& queue) {
    if (queue.empty()) {
      return std::nullopt;
    }
    T first = queue.front();
    queue.pop_front();
    return first;
  }
};

/// Keeps what it was told.
class SilentProgress : public Progress {
 public:
  std::vector<std::string> actions;  ///< every text shown, in order
  std::vector<double> percents;      ///< every value of the meter, in order
  bool action_shown = false;
  bool meter_shown = false;

  void ShowAction(std::string_view text) override {
    actions.emplace_back(text);
    action_shown = true;
  }
  void HideAction() override { action_shown = false; }
  void ShowMeter(double percent) override {
    percents.push_back(percent);
    meter_shown = true;
  }
  void HideMeter() override { meter_shown = false; }
};

}  // namespace vistaplot::test
