// Which adapter shows which kind of control: a table from kind to maker.
#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include "controls/control.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// Makes an adapter, with its widget, for a control of the maker's kind.
using AdapterMaker = std::unique_ptr<ControlAdapter> (*)(Control& control,
                                                         const AdapterParts& parts);

class AdapterFactory {
 public:
  void Register(ControlKind kind, AdapterMaker maker) { makers_[Position(kind)] = maker; }

  /// An adapter that shows all that the control holds; null for a kind without a maker.
  std::unique_ptr<ControlAdapter> Make(Control& control, const AdapterParts& parts) const;

 private:
  static constexpr auto kKinds = static_cast<std::size_t>(ControlKind::kChartBox) + 1;

  static std::size_t Position(ControlKind kind) { return static_cast<std::size_t>(kind); }

  std::array<AdapterMaker, kKinds> makers_{};
};

/// All kinds of control that stand on forms.
AdapterFactory StandardAdapters();

}  // namespace vistaplot
