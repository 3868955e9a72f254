#include "forms/frm_dir.h"

#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"

namespace vistaplot {

FrmDir::FrmDir(const Context& context)
    : Form("frmDir", "Choose a directory", FormStyle::kDialog, context.host), context_(context) {
  Add({{&lblDirectory, "lblDirectory", "", At(180, 150, 4440, 510)},
       {&Drive1, "Drive1", "", At(180, 720, 4440, 330)},
       {&Dir1, "Dir1", "", At(180, 1140, 4440, 2400)},
       {&cmdOK, "cmdOK", "OK", At(1740, 3660, 1320, 420)}});
  Drive1.SetDescription("Drive");
  Dir1.SetDescription("Directory");
  Drive1.content = TextContent::kDrive;
  Dir1.content = TextContent::kFolder;
  Drive1.Change = [this] { Drive1_Change(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
}

void FrmDir::Form_Load() {
  Drive1.SetText("");
  Dir1.SetText("");
}

void FrmDir::Drive1_Change() {
  // A drive that cannot be read leaves the directory as it was, without a word.
  const std::string_view drive = TrimBlanks(Drive1.Text());
  if (drive.size() != 2 || drive[1] != ':') return;
  const std::string root = std::string(drive) + "/";
  if (FolderExists(HostPath(root, context_.state.roots))) Dir1.SetText(root);
}

void FrmDir::cmdOK_Click() {
  if (!(Dir1.Text() > " ") || !FolderExists(HostPath(Dir1.Text(), context_.state.roots))) {
    context_.dialogs.Say("Please choose a directory");
    return;
  }
  context_.state.directories.ChosenDir = Dir1.Text();
  Unload();
}

}  // namespace vistaplot
