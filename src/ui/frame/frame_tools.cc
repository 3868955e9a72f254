#include "ui/frame/frame_tools.h"

#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QIconEngine>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QStatusBar>
#include <QSvgRenderer>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/controls/widgets.h"
#include "ui/frame/form_view.h"

// Resources of a static library are registered on demand; the macro must stand outside namespaces.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vistaplot {

namespace {

constexpr int kIconPixels = 24;
constexpr float kGroupGap = 200.0F;  ///< twips between tools from which on a line parts them

std::vector<Control*> Inside(const Control& panel, const Form& frame, ControlKind kind) {
  std::vector<Control*> inside;
  for (Control* control : frame.Controls()) {
    if (control->Container() == &panel && control->Kind() == kind) inside.push_back(control);
  }
  return inside;
}

float LeftOf(const Control& control) {
  return control.Where().Left.value_or(0.0F);
}

float RightOf(const Control& control) {
  return LeftOf(control) + control.Where().Width.value_or(0.0F);
}

}  // namespace

ToolAdapter::ToolAdapter(Button& button, QToolBar& bar, const TextBox* tip, EventGuard& guard)
    : ControlAdapter(button, guard),
      button_(button),
      action_(bar.addAction(ToolIcon(QtText(button.Name())), QString())),
      tip_(tip) {
  action_->setObjectName(QtText(button.Name()));
  bar.widgetForAction(action_)->setFocusPolicy(Qt::TabFocus);
  bar.widgetForAction(action_)->installEventFilter(this);
  connect(action_, &QAction::triggered, this, [this] { Act([this] { button_.RaiseClick(); }); });
}

bool ToolAdapter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter) PointerCame();
  if (event->type() == QEvent::ToolTip) {
    PointerCame();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), TipText());
    return true;
  }
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      action_->trigger();
      return true;
    }
  }
  return ControlAdapter::eventFilter(watched, event);
}

void ToolAdapter::PointerCame() {
  Act([this] {
    if (button_.MouseMove) button_.MouseMove();
  });
}

QString ToolAdapter::TipText() const {
  const bool shown = tip_ != nullptr && tip_->Visible() && !tip_->Text().empty();
  return shown ? QtText(tip_->Text()) : SpokenText(button_.Caption());
}

void ToolAdapter::CopyVisible() {
  action_->setVisible(button_.Visible());
}

void ToolAdapter::CopyEnabled() {
  action_->setEnabled(button_.Enabled());
}

void ToolAdapter::CopyCaption() {
  const std::string& text = button_.Caption().empty() ? button_.Name() : button_.Caption();
  action_->setText(SpokenText(text));
}

FrameTools::FrameTools(const Form& frame, QMainWindow& window, EventGuard& guard) {
  for (Control* control : frame.Controls()) {
    if (control->Kind() == ControlKind::kTimer) {
      adapters_.push_back(MakeAdapter(*control, {.guard = guard}));
    }
    if (control->Kind() != ControlKind::kPanel) continue;
    if (!Inside(*control, frame, ControlKind::kButton).empty()) {
      AddToolBar(static_cast<Panel&>(*control), frame, window, guard);
      continue;
    }
    adapters_.push_back(MakeAdapter(*control, {.guard = guard, .parent = window.statusBar()}));
    const int share = static_cast<int>(std::lround(RightOf(*control) - LeftOf(*control)));
    window.statusBar()->addWidget(adapters_.back()->Widget(), std::max(share, 1));
  }
}

void FrameTools::AddToolBar(const Panel& panel,
                            const Form& frame,
                            QMainWindow& window,
                            EventGuard& guard) {
  QToolBar* bar = window.addToolBar(QStringLiteral("Tools"));
  bar->setObjectName(QtText(panel.Name()));
  bar->setMovable(false);
  bar->setIconSize({kIconPixels, kIconPixels});
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->installEventFilter(this);
  const auto tips = Inside(panel, frame, ControlKind::kTextBox);
  const auto* tip = tips.empty() ? nullptr : static_cast<const TextBox*>(tips.front());
  const Control* before = nullptr;
  for (Control* control : Inside(panel, frame, ControlKind::kButton)) {
    if (before != nullptr && LeftOf(*control) - RightOf(*before) > kGroupGap) bar->addSeparator();
    auto tool = std::make_unique<ToolAdapter>(static_cast<Button&>(*control), *bar, tip, guard);
    tool->CopyAll();
    adapters_.push_back(std::move(tool));
    before = control;
  }
}

bool FrameTools::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Leave) emit ToolsLeft();
  return QObject::eventFilter(watched, event);
}

namespace {

/// The colour in the drawings that stands for the palette's text colour.
constexpr const char* kInk = "#101010";

QByteArray ReadResource(const QString& name) {
  RegisterIcons();
  QFile file(QStringLiteral(":/icons/") + name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PaletteIconEngine : public QIconEngine {
 public:
  explicit PaletteIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor ink = QGuiApplication::palette().color(group, QPalette::ButtonText);
    QByteArray drawing = drawing_;
    drawing.replace(kInk, ink.name().toLatin1());
    QSvgRenderer renderer(drawing);
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kFaint);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PaletteIconEngine(*this); }

 private:
  static constexpr double kFaint = 0.5;

  QByteArray drawing_;
};

QIcon IconFrom(const QString& name) {
  QByteArray drawing = ReadResource(name);
  return drawing.isEmpty() ? QIcon() : QIcon(new PaletteIconEngine(std::move(drawing)));
}

}  // namespace

QIcon ToolIcon(const QString& name) {
  return IconFrom(name);
}

QIcon ProgramIcon() {
  return IconFrom(QStringLiteral("vistaplot"));
}

}  // namespace vistaplot
