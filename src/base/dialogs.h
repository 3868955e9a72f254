// What the program asks of, or tells, the person in front of it. Windows show boxes; scripts
// answer from a queue; tests record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vistaplot {

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Answer { kOk, kCancel, kYes, kNo };
enum class Icon { kNone, kQuestion };

struct MessageRequest {
  std::string text;
  std::string title;  ///< empty: the program's name stands there
  Buttons buttons = Buttons::kOk;
  Icon icon = Icon::kNone;
  Answer default_answer = Answer::kOk;  ///< the button that Enter presses
};

struct InputRequest {
  std::string prompt;
  std::string title;
  std::string proposed;
};

/// The common file dialog. Filters are old-style: "Summary (*.SUM)|*.SUM|All (*.*)|*.*".
struct FileRequest {
  std::string title;
  std::string filter;
  std::string file_name;  ///< initial file name or pattern, e.g. "*.FAM"
  std::string default_extension;
  std::string initial_folder;  ///< may be old-style text
  bool multiple = false;       ///< several files may be chosen (open only)
  bool must_exist = false;
  bool overwrite_prompt = false;  ///< save only
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  virtual Answer ShowMessage(const MessageRequest& request) = 0;

  /// The text entered; nothing when cancelled.
  virtual std::optional<std::string> AskText(const InputRequest& request) = 0;

  /// Paths chosen, in the order of the selection; empty when cancelled.
  virtual std::vector<std::string> ChooseFilesToOpen(const FileRequest& request) = 0;

  /// Path chosen; nothing when cancelled.
  virtual std::optional<std::string> ChooseFileToSave(const FileRequest& request) = 0;

  /// Ends the program after a fatal error, or by Exit. Nothing after the call may be relied on:
  /// an implementation may return only to unwind (scripts, tests), so callers return at once.
  virtual void EndProgram(bool fatal) = 0;

  /// A plain box with an OK button and no title of its own.
  void Say(std::string text) {
    ShowMessage(
        {.text = std::move(text), .title = {}, .buttons = Buttons::kOk, .icon = Icon::kNone});
  }
};

// Signs of a long operation: the action text, the percentage meter and the pointer.

class Progress {
 public:
  virtual ~Progress() = default;

  /// Shows `text` in the action panel and repaints it.
  virtual void ShowAction(std::string_view text) = 0;
  virtual void HideAction() = 0;

  /// Shows the meter at `percent` (0 to 100) and repaints it when its whole number changed.
  virtual void ShowMeter(double percent) = 0;
  virtual void HideMeter() = 0;

  /// True when the user wants a long run to stop, as by Esc. Whoever asks ends its work in order.
  virtual bool StopWanted() { return false; }
};

/// Hides the action panel and the meter when a scope ends, on failure as on success.
class ProgressScope {
 public:
  ProgressScope(Progress& progress, std::string_view action) : progress_(progress) {
    progress_.ShowAction(action);
  }
  ~ProgressScope() {
    progress_.HideMeter();
    progress_.HideAction();
  }
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;

 private:
  Progress& progress_;
};

}  // namespace vistaplot
