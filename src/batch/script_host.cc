#include "batch/script_host.h"

namespace vistaplot {

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
