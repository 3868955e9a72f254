#include "batch/control_lookup.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/number_text.h"
#include "base/text.h"
#include "controls/list_controls.h"

namespace vistaplot {

namespace {

struct NameParts {
  std::string form;
  std::string control;
  std::optional<int> index;
};

NameParts SplitName(std::string_view name) {
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) {
    throw ScriptError("\"" + std::string(name) + "\" is no form.control or form.control(index)");
  }
  NameParts parts{std::string(name.substr(0, dot)), std::string(name.substr(dot + 1)), {}};
  const std::size_t bracket = parts.control.find('(');
  if (bracket == std::string::npos) return parts;
  std::string index = parts.control.substr(bracket + 1);
  if (!index.ends_with(')')) throw ScriptError("\"" + std::string(name) + "\" lacks its \")\"");
  index.pop_back();
  parts.index = NumberFromWord(index, "index of " + std::string(name), 0, 32767);
  parts.control.resize(bracket);
  return parts;
}

Form& FormOf(const ScriptWorld& world, const std::string& name) {
  std::vector<std::string> names;
  for (Form* form : world.forms) {
    if (EqualsIgnoringCase(form->Name(), name)) return *form;
    names.push_back(form->Name());
  }
  throw ScriptError("there is no screen " + name + DidYouMean(name, names));
}

// Why a form has no control of these parts: an array's index is missing or outside, or the name is
// unknown.
[[noreturn]] void RefuseControl(const Form& form, const NameParts& parts) {
  const std::string name = form.Name() + "." + parts.control;
  std::vector<std::string> names;
  std::vector<int> indices;
  bool single = false;
  for (const Control* control : form.Controls()) {
    const bool same = EqualsIgnoringCase(control->Name(), parts.control);
    if (same && control->Index()) indices.push_back(*control->Index());
    single = single || (same && !control->Index());
    if (names.empty() || names.back() != control->Name()) names.push_back(control->Name());
  }
  if (single) throw ScriptError(name + " has no index");
  if (indices.empty()) {
    throw ScriptError(form.Name() + " has no control " + parts.control +
                      DidYouMean(parts.control, names));
  }
  const auto [least, most] = std::minmax_element(indices.begin(), indices.end());
  throw ScriptError(name + " is an array: say " + name + "(" + std::to_string(*least) + ") to (" +
                    std::to_string(*most) + ")");
}

const Control* FirstInContainers(const Control* control, bool (Control::*holds)() const) {
  while (control != nullptr && (control->*holds)()) control = control->Container();
  return control;
}

std::string WithContainer(const FoundControl& found, const Control* culprit, std::string_view how) {
  if (culprit == found.control) return found.Name() + " is " + std::string(how);
  return found.Name() + " stands in " + culprit->Name() + ", which is " + std::string(how);
}

void RequireShownForm(const ScriptWorld& world, const FoundControl& found) {
  const Form* modal = world.host.Modal();
  if (modal != nullptr && modal != found.form) {
    throw ScriptError(found.Name() + " cannot be used while " + modal->Name() +
                      " is open: close it first");
  }
  const FormStyle style = found.form->Style();
  if ((style == FormStyle::kWindow || style == FormStyle::kDialog) && !found.form->Shown()) {
    throw ScriptError(found.Name() + " cannot be used: " + found.form->Name() + " is not shown");
  }
}

}  // namespace

std::string FoundControl::Name() const {
  std::string name = form->Name() + "." + control->Name();
  const std::optional<int> index = option ? option : control->Index();
  if (!index) return name;
  name += '(';
  name += std::to_string(*index);
  return name += ')';
}

FoundControl FindControl(const ScriptWorld& world, std::string_view name) {
  const NameParts parts = SplitName(name);
  Form& form = FormOf(world, parts.form);
  if (Control* control = form.Find(parts.control, parts.index)) return {&form, control, {}};
  Control* group = form.Find(parts.control);
  if (group == nullptr || group->Kind() != ControlKind::kOptionGroup) RefuseControl(form, parts);
  const int count = static_cast<const OptionGroup*>(group)->Count();
  if (*parts.index >= count) {
    throw ScriptError(form.Name() + "." + group->Name() + " has the options 0 to " +
                      std::to_string(count - 1));
  }
  return {&form, group, parts.index};
}

FoundControl FindUsable(const ScriptWorld& world, std::string_view name) {
  const FoundControl found = FindControl(world, name);
  RequireShownForm(world, found);
  found.form->Load();
  if (!found.control->Shown()) {
    const Control* culprit = FirstInContainers(found.control, &Control::Visible);
    throw ScriptError(WithContainer(found, culprit, "hidden"));
  }
  if (!found.control->Usable()) {
    const Control* culprit = FirstInContainers(found.control, &Control::Enabled);
    throw ScriptError(WithContainer(found, culprit, "disabled"));
  }
  return found;
}

}  // namespace vistaplot
