#include "ui/frame/adapter_factory.h"

#include "ui/chart/chart_adapter.h"
#include "ui/controls/adapters.h"
#include "ui/grid/grid_adapter.h"

namespace vistaplot {

std::unique_ptr<ControlAdapter> AdapterFactory::Make(Control& control,
                                                     const AdapterParts& parts) const {
  const AdapterMaker maker = makers_[Position(control.Kind())];
  if (maker == nullptr) return nullptr;
  std::unique_ptr<ControlAdapter> adapter = maker(control, parts);
  adapter->CopyAll();
  return adapter;
}

AdapterFactory StandardAdapters() {
  AdapterFactory factory;
  factory.Register(ControlKind::kLabel, MakeLabel);
  factory.Register(ControlKind::kTextBox, MakeTextBox);
  factory.Register(ControlKind::kCheckBox, MakeCheckBox);
  factory.Register(ControlKind::kOptionGroup, MakeOptionGroup);
  factory.Register(ControlKind::kComboBox, MakeComboBox);
  factory.Register(ControlKind::kListBox, MakeListBox);
  factory.Register(ControlKind::kButton, MakeButton);
  factory.Register(ControlKind::kFrame, MakeFrame);
  factory.Register(ControlKind::kPanel, MakePanel);
  factory.Register(ControlKind::kScrollBar, MakeScrollBar);
  factory.Register(ControlKind::kTimer, MakeTimer);
  factory.Register(ControlKind::kGrid, MakeGrid);
  factory.Register(ControlKind::kChartBox, MakeChartBox);
  return factory;
}

}  // namespace vistaplot
