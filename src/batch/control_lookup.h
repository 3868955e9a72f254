// From the NAME of a script, "form.control" or "form.control(index)", to the control.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "batch/script_line.h"
#include "batch/script_world.h"
#include "controls/control.h"
#include "controls/form.h"

namespace vistaplot {

struct FoundControl {
  Form* form = nullptr;
  Control* control = nullptr;
  /// Position of one option, where an option group was named with an index.
  std::optional<int> option;

  /// "frmTab.txtRange(0)": the name that scripts may use, in its agreed letters.
  std::string Name() const;
};

/// The control of that name, case ignored; throws ScriptError when there is none.
FoundControl FindControl(const ScriptWorld& world, std::string_view name);

/// FindControl for a control that the user is about to work. Throws ScriptError when a modal form
/// stands before it, its window is not shown, or it or what holds it is hidden or disabled. A
/// screen of the main window that was not shown yet is loaded.
FoundControl FindUsable(const ScriptWorld& world, std::string_view name);

/// The control as a `Kind` of control; throws ScriptError when it is of another kind: `hint` says
/// what to do instead.
template <class Kind>
Kind& ControlAs(const FoundControl& found, std::string_view hint) {
  const std::string kind(KindName(found.control->Kind()));
  if (auto* control = dynamic_cast<Kind*>(found.control)) return *control;
  throw ScriptError(found.Name() + " is a " + kind + ": " + std::string(hint));
}

}  // namespace vistaplot
