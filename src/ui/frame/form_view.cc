#include "ui/frame/form_view.h"

#include <QLabel>
#include <algorithm>
#include <cmath>

#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "ui/chart/chart_adapter.h"
#include "ui/controls/adapters.h"
#include "ui/controls/widgets.h"
#include "ui/grid/grid_view.h"

namespace vistaplot {

namespace {

constexpr int kDialogMargin = 12;        ///< pixels between a dialog's last controls and its edge
constexpr int kTargetGrowth = 130;       ///< percent of the natural height
constexpr QSize kLeastScreen(600, 440);  ///< screens with fields scroll below this
constexpr QSize kLeastPicture(160, 120);

int Pixel(double twips, double factor) {
  return static_cast<int>(std::lround(twips * factor / static_cast<double>(kTwipsPerPixel)));
}

double Length(const std::optional<float>& length) {
  return static_cast<double>(length.value_or(0.0F));
}

/// `place` with another height about the same middle line.
QRect WithHeight(const QRect& place, int height) {
  return {place.left(), place.top() + (place.height() - height) / 2, place.width(), height};
}

/// Widgets of one line keep their natural height; those that the mouse aims at may grow a little
/// with their place.
int OneLineHeight(const ControlAdapter& adapter, int room) {
  const int natural = adapter.Widget()->sizeHint().height();
  const ControlKind kind = adapter.Source().Kind();
  if (kind != ControlKind::kButton && kind != ControlKind::kScrollBar) return natural;
  return std::clamp(room, natural, natural * kTargetGrowth / 100);
}

/// The maker for a control's kind; null for kinds that stand on no form.
AdapterMaker MakerFor(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return MakeLabel;
    case ControlKind::kTextBox:
      return MakeTextBox;
    case ControlKind::kCheckBox:
      return MakeCheckBox;
    case ControlKind::kOptionGroup:
      return MakeOptionGroup;
    case ControlKind::kComboBox:
      return MakeComboBox;
    case ControlKind::kListBox:
      return MakeListBox;
    case ControlKind::kButton:
      return MakeButton;
    case ControlKind::kFrame:
      return MakeFrame;
    case ControlKind::kPanel:
      return MakePanel;
    case ControlKind::kScrollBar:
      return MakeScrollBar;
    case ControlKind::kTimer:
      return MakeTimer;
    case ControlKind::kGrid:
      return MakeGrid;
    case ControlKind::kChartBox:
      return MakeChartBox;
    case ControlKind::kMenuItem:
      return nullptr;
  }
  return nullptr;
}

/// What a control is called where nothing on its form says more.
QString NameOfKind(ControlKind kind) {
  switch (kind) {
    case ControlKind::kTextBox:
      return QStringLiteral("Entry");
    case ControlKind::kComboBox:
    case ControlKind::kOptionGroup:
      return QStringLiteral("Choice");
    case ControlKind::kListBox:
      return QStringLiteral("List");
    case ControlKind::kScrollBar:
      return QStringLiteral("Scroll bar");
    case ControlKind::kChartBox:
      return QStringLiteral("Chart");
    case ControlKind::kGrid:
      return QStringLiteral("Sheet");
    default:
      return QStringLiteral("Button");
  }
}

/// What assistive tools call a control; `label` stands by it, or is null.
QString SpokenName(const Control& control, const Control* label) {
  const Control* container = control.Container();
  QString name = SpokenText(control.Caption());
  if (name.isEmpty()) name = QtText(control.Description());
  if (name.isEmpty() && label != nullptr) name = SpokenText(label->Caption());
  if (name.isEmpty() && container != nullptr) name = SpokenText(container->Caption());
  return name.isEmpty() ? NameOfKind(control.Kind()) : name;
}

}  // namespace

std::unique_ptr<ControlAdapter> MakeAdapter(Control& control, const AdapterParts& parts) {
  const AdapterMaker maker = MakerFor(control.Kind());
  if (maker == nullptr) return nullptr;
  std::unique_ptr<ControlAdapter> adapter = maker(control, parts);
  adapter->CopyAll();
  return adapter;
}

QRect PixelPlace(const Place& place, double x_factor, double y_factor) {
  const double left = Length(place.Left);
  const double top = Length(place.Top);
  const QPoint corner(Pixel(left, x_factor), Pixel(top, y_factor));
  const QPoint end(Pixel(left + Length(place.Width), x_factor),
                   Pixel(top + Length(place.Height), y_factor));
  return {corner, end - QPoint(1, 1)};
}

FormView::FormView(Form& form, const AdapterParts& parts, QSize display)
    : QWidget(parts.parent), form_(form) {
  Build(parts);
  MeasureBase(display);
  NameWidgets();
  JoinScrollBar();
  JoinLists();
  ChainTabStops();
  LayOut();
}

FormView::~FormView() = default;

ControlAdapter* FormView::AdapterOf(const Control& control) const {
  const auto found = by_control_.find(&control);
  return found == by_control_.end() ? nullptr : found->second;
}

const Control* FormView::ControlOf(const QWidget& widget) const {
  for (const auto& adapter : adapters_) {
    if (adapter->Widget() == &widget) return &adapter->Source();
  }
  return nullptr;
}

void FormView::Build(const AdapterParts& parts) {
  for (Control* control : form_.Controls()) {
    AdapterParts own = parts;
    own.parent = ParentFor(*control);
    auto adapter = MakeAdapter(*control, own);
    if (adapter == nullptr) continue;
    if (adapter->Widget() != nullptr) adapter->Widget()->setObjectName(QtText(control->Name()));
    by_control_[control] = adapter.get();
    connect(adapter.get(), &ControlAdapter::Moved, this, &FormView::LayOut);
    connect(adapter.get(), &ControlAdapter::Renamed, this, &FormView::NameWidgets);
    adapters_.push_back(std::move(adapter));
  }
}

QWidget* FormView::ParentFor(const Control& control) {
  if (control.Container() == nullptr) return this;
  ControlAdapter* container = AdapterOf(*control.Container());
  return container == nullptr || container->Widget() == nullptr ? this : container->Widget();
}

void FormView::MeasureBase(QSize display) {
  bool has_fields = false;
  QRect all;
  for (const auto& adapter : adapters_) {
    all |= PixelPlace(adapter->Source().Where(), 1.0, 1.0);
    const bool bar = adapter->Source().Kind() == ControlKind::kScrollBar;
    has_fields = has_fields || (adapter->OneLine() && !bar);
  }
  const QSize extent(all.right() + 1 + kDialogMargin, all.bottom() + 1 + kDialogMargin);
  base_ = display.isEmpty() ? extent : display;
  minimum_ = display.isEmpty() ? extent : has_fields ? kLeastScreen : kLeastPicture;
  setMinimumSize(minimum_);
  resize(base_);
}

void FormView::NameWidgets() {
  const std::map<const Control*, Control*> labels = FindLabels(form_);
  std::map<const Control*, QWidget*> buddies;
  for (const auto& adapter : adapters_) {
    const std::vector<QWidget*> stops = adapter->TabStops();
    if (stops.empty()) continue;
    const auto found = labels.find(&adapter->Source());
    const Control* label = found == labels.end() ? nullptr : found->second;
    const bool labelled = label != nullptr && buddies.emplace(label, stops.front()).second;
    adapter->SetAccessibleName(SpokenName(adapter->Source(), label), labelled);
  }
  for (const auto& adapter : adapters_) {
    auto* label = qobject_cast<QLabel*>(adapter->Widget());
    if (label == nullptr) continue;
    const auto found = buddies.find(&adapter->Source());
    QWidget* buddy = found == buddies.end() ? nullptr : found->second;
    if (label->buddy() != buddy) label->setBuddy(buddy);
  }
}

void FormView::JoinScrollBar() {
  const auto is_bar = [](const auto& adapter) {
    return adapter->Source().Kind() == ControlKind::kScrollBar;
  };
  if (std::count_if(adapters_.begin(), adapters_.end(), is_bar) != 1) return;
  const auto bar = std::find_if(adapters_.begin(), adapters_.end(), is_bar);
  for (const auto& adapter : adapters_) {
    adapter->JoinScrollBar(static_cast<ScrollBar&>((*bar)->Source()));
  }
}

void FormView::JoinLists() {
  for (const auto& adapter : adapters_) {
    if (adapter->Source().Kind() != ControlKind::kTextBox) continue;
    const EntryControl* searched = static_cast<const TextBox&>(adapter->Source()).searched;
    const ControlAdapter* list = searched == nullptr ? nullptr : AdapterOf(*searched);
    if (list != nullptr && list->Widget() != nullptr) adapter->JoinList(*list->Widget());
  }
}

void FormView::ChainTabStops() {
  QWidget* last = nullptr;
  for (const auto& adapter : adapters_) {
    for (QWidget* stop : adapter->TabStops()) {
      if (last != nullptr) setTabOrder(last, stop);
      last = stop;
    }
  }
}

void FormView::FocusFirst() {
  for (const auto& adapter : adapters_) {
    for (QWidget* stop : adapter->TabStops()) {
      if (adapter->Source().Usable()) return stop->setFocus(Qt::OtherFocusReason);
    }
  }
}

void FormView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

void FormView::LayOut() {
  for (const auto& adapter : adapters_) {
    if (adapter->Widget() != nullptr) Put(*adapter);
  }
}

void FormView::Put(const ControlAdapter& adapter) {
  QWidget& widget = *adapter.Widget();
  const double x_factor = static_cast<double>(width()) / base_.width();
  const double y_factor = static_cast<double>(height()) / base_.height();
  QRect place = PixelPlace(adapter.Source().Where(), x_factor, y_factor);
  if (adapter.OneLine()) {
    place = WithHeight(place, OneLineHeight(adapter, place.height()));
  } else if (adapter.Source().Kind() == ControlKind::kLabel) {
    place = WithHeight(place, std::max(place.height(), widget.fontMetrics().height()));
  }
  if (widget.parentWidget() != this) {
    const ControlAdapter* container = AdapterOf(*adapter.Source().Container());
    place.translate(-PixelPlace(container->Source().Where(), x_factor, y_factor).topLeft());
  }
  widget.setGeometry(place);
}

}  // namespace vistaplot
