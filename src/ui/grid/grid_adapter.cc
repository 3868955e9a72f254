#include "ui/grid/grid_adapter.h"

#include <cassert>

#include "controls/view_controls.h"
#include "ui/grid/grid_view.h"

namespace vistaplot {

namespace {

class GridAdapter : public ControlAdapter {
 public:
  GridAdapter(Grid& grid, const AdapterParts& parts)
      : ControlAdapter(grid, parts.guard),
        view_(new GridView(grid, *parts.table, parts.guard, parts.parent)) {
    SetWidget(view_);
  }

  bool Follows() const override { return true; }

  std::vector<QWidget*> TabStops() const override { return {&view_->Area(), &view_->Tabs()}; }

  /// The sheet shown names itself.
  void SetAccessibleName(const QString& /*name*/, bool /*labelled*/) override {}

 private:
  GridView* view_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeGrid(Control& control, const AdapterParts& parts) {
  assert(parts.table != nullptr);
  return std::make_unique<GridAdapter>(static_cast<Grid&>(control), parts);
}

}  // namespace vistaplot
