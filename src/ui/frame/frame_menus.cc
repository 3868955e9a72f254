#include "ui/frame/frame_menus.h"

#include <QKeySequence>
#include <QMenu>
#include <QPainter>
#include <QString>
#include <algorithm>

#include "base/text.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

bool BeginsWord(const QString& text, qsizetype at) {
  return at == 0 || !text[at - 1].isLetter();
}

/// Where the free letter of `text` stands; 0 when there is none.
qsizetype PlaceOfKey(const QString& text, const QString& taken) {
  qsizetype any = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!text[i].isLetter() || taken.contains(text[i], Qt::CaseInsensitive)) continue;
    if (BeginsWord(text, i)) return i;
    if (any < 0) any = i;
  }
  return std::max<qsizetype>(any, 0);
}

QString KeyOf(const QString& text) {
  return QKeySequence::mnemonic(text).toString().right(1);
}

bool HoldsItems(const Control& item, const Form& frame) {
  return std::any_of(frame.Controls().begin(), frame.Controls().end(), [&item](Control* other) {
    return other->Container() == &item;
  });
}

}  // namespace

void MenuBar::paintEvent(QPaintEvent* event) {
  QMenuBar::paintEvent(event);
  QAction* current = activeAction();
  if (!hasFocus() || current == nullptr) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(actionGeometry(current).adjusted(0, 0, -1, -1));
}

void GiveAccessKeys(const QList<QAction*>& actions) {
  QString taken;
  for (const QAction* action : actions) taken += KeyOf(action->text());
  for (QAction* action : actions) {
    QString text = action->text();
    if (text.isEmpty() || !KeyOf(text).isEmpty()) continue;
    text.insert(PlaceOfKey(text, taken), u'&');
    taken += KeyOf(text);
    action->setText(text);
  }
}

MenuItemAdapter::MenuItemAdapter(MenuItem& item, QAction& action, EventGuard& guard)
    : ControlAdapter(item, guard), item_(item), action_(action) {
  action_.setObjectName(QtText(item.Name()));
  connect(&action_, &QAction::triggered, this, [this] { Act([this] { item_.RaiseClick(); }); });
}

void MenuItemAdapter::CopyVisible() {
  action_.setVisible(item_.Visible());
}

void MenuItemAdapter::CopyEnabled() {
  action_.setEnabled(item_.Enabled());
}

void MenuItemAdapter::CopyCaption() {
  if (item_.Caption() == "-") {
    action_.setSeparator(true);
  } else {
    action_.setText(QtText(item_.Caption()));
  }
}

void MenuItemAdapter::CopyValue() {
  action_.setCheckable(item_.Checked());
  action_.setChecked(item_.Checked());
}

FrameMenus::FrameMenus(const Form& frame, QMenuBar& bar, EventGuard& guard) : bar_(bar) {
  for (Control* control : frame.Controls()) {
    if (control->Kind() != ControlKind::kMenuItem) continue;
    AddItem(static_cast<MenuItem&>(*control), frame, guard);
  }
  GiveAccessKeys(bar.actions());
  for (const QAction* above : bar.actions()) {
    if (above->menu() != nullptr) GiveAccessKeys(above->menu()->actions());
  }
}

QAction* FrameMenus::Find(std::string_view name) const {
  for (const auto& item : items_) {
    if (EqualsIgnoringCase(item->Source().Name(), name)) return &item->Action();
  }
  return nullptr;
}

void FrameMenus::AddItem(MenuItem& item, const Form& frame, EventGuard& guard) {
  QWidget* holder = &bar_;
  if (item.Container() != nullptr) {
    QAction* above = Find(item.Container()->Name());
    if (above != nullptr && above->menu() != nullptr) holder = above->menu();
  }
  auto* action = HoldsItems(item, frame) ? (new QMenu(&bar_))->menuAction() : new QAction(&bar_);
  holder->addAction(action);
  items_.push_back(std::make_unique<MenuItemAdapter>(item, *action, guard));
  items_.back()->CopyAll();
}

}  // namespace vistaplot
