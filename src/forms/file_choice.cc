#include "forms/file_choice.h"

namespace vistaplot {

std::optional<std::string> ChooseSavePath(const FileRequest& request, Dialogs& dialogs) {
  const MessageRequest no_choice{
      .text = "No file selected, press OK to continue. Press cancel to select a file",
      .title = {},
      .buttons = Buttons::kOkCancel};
  do {
    auto chosen = dialogs.ChooseFileToSave(request);
    if (chosen) return chosen;
  } while (dialogs.ShowMessage(no_choice) == Answer::kCancel);
  return std::nullopt;
}

}  // namespace vistaplot
