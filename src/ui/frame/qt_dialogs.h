// The program's questions and messages as boxes on the desktop.
#pragma once

#include <QPointer>
#include <QWidget>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(const EventGuard& guard) : guard_(guard) {}

  /// The window over which boxes appear, and where old-style paths lie; both outlive their use.
  void Use(QWidget* window, const PathRoots& roots);

  Answer ShowMessage(const MessageRequest& request) override;
  std::optional<std::string> AskText(const InputRequest& request) override;
  std::vector<std::string> ChooseFilesToOpen(const FileRequest& request) override;
  std::optional<std::string> ChooseFileToSave(const FileRequest& request) override;

  /// Throws ProgramEnded, which leaves all handlers at once.
  [[noreturn]] void EndProgram(bool fatal) override;

 private:
  QWidget* Owner() const;

  const EventGuard& guard_;
  QPointer<QWidget> window_;
  const PathRoots* roots_ = nullptr;
};

}  // namespace vistaplot
