#include "app/program.h"

#include "base/text.h"

namespace vistaplot {

Program::Program(const ProgramParts& parts) {
  state_.directories.ProgramDir = parts.program_dir;
  state_.roots = parts.roots;
  screens_ = std::make_unique<Screens>(ScreenParts{
      parts.quoteline, parts.settings, parts.dialogs, parts.host, parts.output, state_});
  forms_ = screens_->All();
}

void Program::Start() {
  screens_->frmMain.Show();
  screens_->frmTab.Show();
}

Form* Program::FindForm(std::string_view name) const {
  for (Form* form : forms_) {
    if (EqualsIgnoringCase(form->Name(), name)) return form;
  }
  return nullptr;
}

}  // namespace vistaplot
