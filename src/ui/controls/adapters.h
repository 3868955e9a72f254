// The makers of the plain kinds of control. A maker is called with a control of its kind only and
// gives it a widget below `parts.parent`, still empty (ControlAdapter::CopyAll fills it). Adapters
// know no form.
#pragma once

#include <memory>

#include "ui/controls/control_adapter.h"

namespace vistaplot {

class TextBox;

using AdapterMaker = std::unique_ptr<ControlAdapter> (*)(Control& control,
                                                         const AdapterParts& parts);

std::unique_ptr<ControlAdapter> MakeLabel(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeTextBox(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeCheckBox(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeOptionGroup(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeComboBox(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeListBox(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeButton(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeFrame(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakePanel(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeScrollBar(Control& control, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeTimer(Control& control, const AdapterParts& parts);

/// Text boxes by what they hold; MakeTextBox chooses. `parts.roots` is given.
std::unique_ptr<ControlAdapter> MakeFolderBox(TextBox& box, const AdapterParts& parts);
std::unique_ptr<ControlAdapter> MakeDriveBox(TextBox& box, const AdapterParts& parts);

}  // namespace vistaplot
