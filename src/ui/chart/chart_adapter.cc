#include "ui/chart/chart_adapter.h"

#include <algorithm>

#include "controls/value_controls.h"
#include "ui/chart/chart_widget.h"

namespace vistaplot {

namespace {

constexpr int kNotchesPerChart = 20;  ///< turns of the wheel that move a chart by its own length

class ChartAdapter : public ControlAdapter {
 public:
  ChartAdapter(ChartBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard),
        box_(box),
        chart_(new ChartWidget(box, parts.guard, parts.parent)) {
    if (parts.charts != nullptr) hooks_.change_period = parts.charts->change_period;
    chart_->SetHooks(hooks_);
    SetWidget(chart_);
  }

  bool Follows() const override { return true; }

  void JoinScrollBar(ScrollBar& bar) override {
    hooks_.scroll = [this, &bar](int notches) {
      const int step = std::max(1, box_.view.rowcount() / kNotchesPerChart);
      if (bar.Usable()) bar.SetValue(bar.Value() + notches * step);
    };
    chart_->SetHooks(hooks_);
  }

 protected:
  void CopyValue() override { chart_->ViewChanged(); }
  void CopyPointed() override { chart_->FollowRow(box_.PointedRow()); }

 private:
  ChartBox& box_;
  ChartWidget* chart_;
  ChartHooks hooks_;
};

}  // namespace

std::unique_ptr<ControlAdapter> MakeChartBox(Control& control, const AdapterParts& parts) {
  return std::make_unique<ChartAdapter>(static_cast<ChartBox&>(control), parts);
}

}  // namespace vistaplot
