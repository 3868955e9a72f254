// The program's questions and messages as boxes on the desktop.
#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <string_view>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "ui/event_guard.h"

class QFileDialog;

namespace vistaplot {

/// Old-style filters "Summary (*.SUM)|*.SUM|All (*.*)|*.*" as the toolkit's: "Summary (*.SUM)",
/// "All (*)". A pattern list is parted by ";"; a text without a pattern behind it is dropped.
QStringList NameFilters(std::string_view old_style);

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
  void SetUp(QFileDialog& dialog, const FileRequest& request) const;

  const EventGuard& guard_;
  QPointer<QWidget> window_;
  const PathRoots* roots_ = nullptr;
};

}  // namespace vistaplot
