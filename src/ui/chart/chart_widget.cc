#include "ui/chart/chart_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "charts/kinds/kind.h"
#include "charts/kinds/surface.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/read_out_line.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr int kNotch = 120;          ///< turn of the wheel, in eighths of a degree
constexpr int kUsualSpacing = 20;    ///< rows of a page where labels have no spacing of their own
constexpr double kPlotReach = 12.0;  ///< how far beside the plot the pointer still moves the cross
constexpr double kClickReach = 4.0;  ///< a click whose pointer moved farther is none
constexpr int kFocusFrame = 2;
constexpr int kDarkest = 128;  ///< lightness below which a desktop counts as dark
constexpr int kHintFont = 11;  ///< points

/// Whole notches of `rest` and `delta` together; `rest` keeps what is left.
int TakeNotches(int& rest, int delta) {
  if ((rest < 0) != (delta < 0)) rest = 0;  // turned back
  rest += delta;
  const int notches = rest / kNotch;
  rest -= notches * kNotch;
  return notches;
}

/// What lies at `x` on the horizontal scale.
double PositionAt(const PlotScale& scale, double x) {
  return scale.first_position +
         (x - scale.box.left) / scale.box.Width() * (scale.last_position - scale.first_position);
}

/// What lies at `y` on the vertical scale.
double ValueAt(const PlotScale& scale, double y) {
  return scale.lowest +
         (scale.box.bottom - y) / scale.box.Height() * (scale.highest - scale.lowest);
}

}  // namespace

ChartWidget::ChartWidget(ChartBox& control, EventGuard& guard, QWidget* parent)
    : QWidget(parent), control_(control), guard_(guard), read_out_line_(*new ReadOutLine(this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName(tr("Chart"));
  read_out_line_.ShowHint();
  connect(this, &ChartWidget::Outdated, this, &ChartWidget::Prepare, Qt::QueuedConnection);
}

void ChartWidget::SetHooks(ChartHooks hooks) {
  hooks_ = std::move(hooks);
  ViewChanged();
}

void ChartWidget::ViewChanged() {
  update(QRect(QPoint(), ChartSize()));  // the read-out sees to itself
  if (std::exchange(stale_, true) || !isVisible()) return;
  // Ahead of the painting, so that the read-out is in step when that begins; once for many changes.
  emit Outdated();
}

void ChartWidget::Prepare() {
  if (!stale_) return;
  stale_ = false;
  theme_ = palette().color(QPalette::Window).lightness() < kDarkest ? DarkTheme() : LightTheme();
  if (!control_.view.facts.cells.turning) {  // a hand that turns changes neither cells nor values
    read_out_line_.Prepare(control_.view, theme_);
    PlaceReadOut();
  }
  LayOut();
}

void ChartWidget::PlaceReadOut() {
  const int line = read_out_line_.HeightFor(width(), height() / 4);
  read_out_line_.setVisible(line > 0);
  read_out_line_.setGeometry(0, height() - line, width(), line);
}

QSize ChartWidget::ChartSize() const {
  return {width(), read_out_line_.isHidden() ? height() : read_out_line_.y()};
}

void ChartWidget::LayOut() {
  const double place = marks_.x;
  const bool other_rows = picture_rows_ != control_.view.rowcount();
  picture_rows_ = control_.view.rowcount();
  const QSize size = ChartSize();
  picture_ = LayoutChart(control_.view,
                         {static_cast<double>(size.width()), static_cast<double>(size.height())},
                         texts_,
                         {.dark = theme_.dark, .detail = devicePixelRatioF()});
  paint_anew_ = true;
  if (!control_.view.facts.cells.turning) cross_hair_.Follow(control_.view);
  if (!cross_hair_.Shown()) return ClearCrossHair();
  if (other_rows && !KindOf(control_.view).Turns())
    cross_hair_.SnapTo(PositionAt(picture_.scale, place));
  ShowCrossHair();
}

void ChartWidget::PaintChart(QPainter& painter) {
  if (control_.view.ColumnCount() == 0) {
    PaintNoChart(painter);
  } else {
    PaintPicture(painter, picture_, texts_);
  }
}

void ChartWidget::KeepPainted() {
  const double ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(ChartSize()) * ratio).toSize();
  if (painted_.size() != pixels) painted_ = QPixmap(pixels);
  painted_.setDevicePixelRatio(ratio);
  QPainter painter(&painted_);
  PaintChart(painter);
  paint_anew_ = false;
}

// A view without series has nothing on its axes; how to get a chart helps more.
void ChartWidget::PaintNoChart(QPainter& painter) const {
  const QRect all(QPoint(), ChartSize());
  painter.fillRect(all, QtColor(theme_.background));
  QFont font = painter.font();
  font.setPointSize(kHintFont);
  painter.setFont(font);
  painter.setPen(QtColor(theme_.label));
  painter.drawText(all,
                   Qt::AlignCenter | Qt::TextWordWrap,
                   control_.view.WhyEmpty.empty() ? tr("No chart yet: load data, select funds on "
                                                       "the data screen, then choose File > Graph.")
                                                  : QtText(control_.view.WhyEmpty));
}

// While there is a cross-hair the chart below it is kept, so that a move copies pixels; without one
// each step of the scroll bar would copy all of them in vain.
void ChartWidget::paintEvent(QPaintEvent* event) {
  if (painted_ratio_ != devicePixelRatioF()) stale_ = true;
  painted_ratio_ = devicePixelRatioF();
  Prepare();
  QPainter painter(this);
  if (cross_hair_.Shown()) {
    PaintWithCrossHair(painter, event->region());
  } else {
    PaintChart(painter);
  }
  if (hasFocus()) PaintFocusFrame(painter);
}

void ChartWidget::PaintWithCrossHair(QPainter& painter, const QRegion& region) {
  if (paint_anew_) KeepPainted();
  // Within a plain rectangle the pixels are copied; a region of several is blended line by line.
  for (const QRect& part : region) {
    painter.setClipRect(part);
    painter.drawPixmap(0, 0, painted_);
    PaintLines(painter, marks_, theme_);
  }
  painter.setClipping(false);
  PaintRings(painter, marks_, theme_);
}

void ChartWidget::PaintFocusFrame(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  const QRect frame(QPoint(), ChartSize());
  const QRegion inside = frame.adjusted(kFocusFrame, kFocusFrame, -kFocusFrame, -kFocusFrame);
  for (const QRect& side : QRegion(frame) - inside) {
    painter.fillRect(side, palette().color(QPalette::Highlight));
  }
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ViewChanged();
}

void ChartWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Prepare();
}

void ChartWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::StyleChange) {
    ViewChanged();
  }
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
  Prepare();
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const int key = event->key();
  const bool done = MovesCell(key, modifiers) ? cross_hair_.Possible() && DoKey(key)
                                              : modifiers == Qt::NoModifier && DoTurnKey(key);
  if (!done) QWidget::keyPressEvent(event);
}

// Whether a key is about the cross-hair; on a surface the plain arrows turn it.
bool ChartWidget::MovesCell(int key, Qt::KeyboardModifiers modifiers) const {
  if (!KindOf(control_.view).Turns()) return modifiers == Qt::NoModifier;
  const bool arrow =
      key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
  const bool chooses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
  return arrow ? modifiers == Qt::ShiftModifier : chooses && modifiers == Qt::NoModifier;
}

// False for keys that mean nothing here.
bool ChartWidget::DoKey(int key) {
  switch (key) {
    case Qt::Key_Left:
      cross_hair_.Step(-1);
      break;
    case Qt::Key_Right:
      cross_hair_.Step(1);
      break;
    case Qt::Key_PageUp:
      cross_hair_.Step(-LabelSpacing());
      break;
    case Qt::Key_PageDown:
      cross_hair_.Step(LabelSpacing());
      break;
    case Qt::Key_Home:
      cross_hair_.GoToFirst();
      break;
    case Qt::Key_End:
      cross_hair_.GoToLast();
      break;
    case Qt::Key_Up:
      if (!cross_hair_.Climbs()) return ChooseNext(-1);
      cross_hair_.Climb(1);
      break;
    case Qt::Key_Down:
      if (!cross_hair_.Climbs()) return ChooseNext(1);
      cross_hair_.Climb(-1);
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return DoEnter();
    case Qt::Key_Escape:
      if (!cross_hair_.Shown()) return false;
      HideCrossHair();
      return true;
    default:
      return false;
  }
  ShowCrossHair();
  return true;
}

// Opens the cell that is read off, at first the best one; elsewhere selects the point.
bool ChartWidget::DoEnter() {
  if (HasCells()) {
    if (!cross_hair_.Shown() && cross_hair_.Appear()) ShowCrossHair();
    OpenCell({cross_hair_.Place().column, cross_hair_.Row()});
    return true;
  }
  if (!cross_hair_.Shown() || marks_.Chosen() == nullptr) return false;
  SelectPoint(chosen_series_, cross_hair_.Row());
  return true;
}

bool ChartWidget::DoTurnKey(int key) {
  ChartView& view = control_.view;
  if (!KindOf(view).Turns()) return false;
  switch (key) {
    case Qt::Key_Left:
      StepSurface(view, -1, 0);
      break;
    case Qt::Key_Right:
      StepSurface(view, 1, 0);
      break;
    case Qt::Key_Up:
      StepSurface(view, 0, 1);
      break;
    case Qt::Key_Down:
      StepSurface(view, 0, -1);
      break;
    case Qt::Key_Home:
      ResetSurface(view);
      break;
    default:
      return false;
  }
  view.Refresh();
  return true;
}

// A surface turns with the hand, large ones coarser until the button is let go. A hand that
// trembles within a click turns nothing.
void ChartWidget::Drag(QPointF at) {
  if (!dragged_to_ && (at - *pressed_at_).manhattanLength() <= kClickReach) return;
  const QPointF from = std::exchange(dragged_to_, at).value_or(*pressed_at_);
  control_.view.facts.cells.turning = true;
  TurnSurface(control_.view, at.x() - from.x(), at.y() - from.y());
  control_.view.Refresh();
}

// The cell of a surface under the pointer; beside them the last one stays.
void ChartWidget::ReadCellAt(QPointF at) {
  const auto hit = FindPoint(control_.view, picture_, {at.x(), at.y()});
  if (hit && cross_hair_.GoToRow(hit->point, hit->series)) ShowCrossHair();
}

bool ChartWidget::HasCells() const {
  const PositionAxis axis = KindOf(control_.view).Positions();
  return axis == PositionAxis::kCells || axis == PositionAxis::kNone;
}

void ChartWidget::OpenCell(const ChartHit& hit) {
  guard_.Run([&] { control_.RaiseCellOpened(hit.point, hit.series); });
}

int ChartWidget::LabelSpacing() const {
  const auto& scale = control_.view.Plot.Axis[0].CategoryScale;
  return scale.Auto || scale.DivisionsPerLabel < 2 ? kUsualSpacing : scale.DivisionsPerLabel;
}

bool ChartWidget::ChooseNext(int step) {
  if (!cross_hair_.Shown() || marks_.points.empty()) return false;
  const auto& points = marks_.points;
  const CrossHairPoint* chosen = marks_.Chosen();
  const auto count = static_cast<int>(points.size());
  const int now = chosen == nullptr ? 0 : static_cast<int>(chosen - points.data());
  chosen_series_ = points[static_cast<std::size_t>((now + step + count) % count)].series;
  ShowCrossHair();
  return true;
}

void ChartWidget::PointAt(QPointF at) {
  Prepare();
  if (KindOf(control_.view).Turns()) return ReadCellAt(at);
  const PictureBox& plot = picture_.plot;
  if (!cross_hair_.Possible() || at.x() < plot.left - kPlotReach ||
      at.x() > plot.right + kPlotReach || at.y() >= ChartSize().height()) {
    return;
  }
  const PlotScale& scale = picture_.scale;
  const bool moved = cross_hair_.SnapTo(PositionAt(scale, at.x()), ValueAt(scale, at.y()));
  if (moved || marks_.NearestSeries(at.y()) != chosen_series_) ShowCrossHair(at.y());
}

void ChartWidget::ShowCrossHair(std::optional<double> near_y) {
  const Stop place = cross_hair_.Place();
  const ReadOut read_out = ReadRow(control_.view, place.row, theme_.dark, place.column);
  CrossHairMarks marks = MarksOf(control_.view, picture_, cross_hair_, read_out);
  const auto series = static_cast<int>(read_out.entries.size());
  if (chosen_series_ > series || place.column > 0) chosen_series_ = 1;
  if (near_y) chosen_series_ = marks.NearestSeries(*near_y);
  marks.chosen_series = chosen_series_;
  ReplaceMarks(marks);
  read_out_line_.Show(read_out, chosen_series_);
  read_out_text_ = QtText(LineText(read_out));
  setAccessibleDescription(read_out_text_);
  control_.Point(place.row);
}

void ChartWidget::FollowRow(int row) {
  Prepare();
  if (row > 0) {
    if (cross_hair_.GoToRow(row)) ShowCrossHair();
  } else if (cross_hair_.Shown()) {
    HideCrossHair();
  }
}

void ChartWidget::HideCrossHair() {
  ClearCrossHair();
  control_.Point(0);
}

void ChartWidget::ClearCrossHair() {
  cross_hair_.Hide();
  ReplaceMarks({});
  read_out_line_.ShowHint();
  read_out_text_.clear();
  setAccessibleDescription(read_out_text_);
}

void ChartWidget::ReplaceMarks(const CrossHairMarks& marks) {
  update(AreaOf(marks_) + AreaOf(marks));
  marks_ = marks;
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (pressed_at_ && KindOf(control_.view).Turns()) return Drag(event->position());
  PointAt(event->position());
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
  pressed_at_.reset();
  dragged_to_.reset();
  if (event->button() == Qt::LeftButton) pressed_at_ = event->position();
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  const auto pressed_at = std::exchange(pressed_at_, std::nullopt);
  if (dragged_to_) {
    dragged_to_.reset();
    control_.view.facts.cells.turning = false;
    control_.view.Refresh();
    return;
  }
  if (!pressed_at || (at - *pressed_at).manhattanLength() > kClickReach) return;
  Prepare();
  if (cross_hair_.Shown()) PointAt(at);  // keys may have moved it away from a resting pointer
  const auto hit = FindPoint(control_.view, picture_, {at.x(), at.y()});
  if (hit) SelectPoint(hit->series, RowOfClick(*hit));
}

void ChartWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  Prepare();
  const QPointF at = event->position();
  const auto hit = FindPoint(control_.view, picture_, {at.x(), at.y()});
  if (!hit || !HasCells() || event->button() != Qt::LeftButton) {
    return QWidget::mouseDoubleClickEvent(event);
  }
  OpenCell(*hit);
}

// On a steep curve the nearest point may be days beside the pointer; the day that the read-out
// shows is meant.
int ChartWidget::RowOfClick(const ChartHit& hit) const {
  const auto is_hit = [&hit](const CrossHairPoint& point) { return point.series == hit.series; };
  const bool over_days = KindOf(control_.view).Positions() == PositionAxis::kRowLabels;
  const bool read_out = over_days && cross_hair_.Shown() &&
                        std::any_of(marks_.points.begin(), marks_.points.end(), is_hit);
  return read_out ? cross_hair_.Row() : hit.point;
}

void ChartWidget::SelectPoint(int series, int point) {
  PointSelection selection{.Series = series, .DataPoint = point, .MouseFlags = 0, .Cancel = false};
  guard_.Run([&] { control_.RaisePointSelected(selection); });
  Prepare();
  if (selection.Cancel) return;
  cross_hair_.GoToRow(point);
  chosen_series_ = series;
  if (cross_hair_.Shown()) ShowCrossHair();
}

void ChartWidget::wheelEvent(QWheelEvent* event) {
  const bool period = event->modifiers().testFlag(Qt::ControlModifier);
  const auto& hook = period ? hooks_.change_period : hooks_.scroll;
  if (!hook) return event->ignore();
  const QPoint turn = event->angleDelta();
  // Away from the user: back in time, and nearer.
  const int notches =
      TakeNotches(period ? period_rest_ : scroll_rest_, turn.y() != 0 ? -turn.y() : -turn.x());
  event->accept();
  if (notches != 0) guard_.Run([&] { hook(notches); });
}

}  // namespace vistaplot
