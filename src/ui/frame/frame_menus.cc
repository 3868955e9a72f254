#include "ui/frame/frame_menus.h"

#include <QMenu>
#include <algorithm>

#include "base/text.h"
#include "ui/controls/access_keys.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

bool HoldsItems(const Control& item, const Form& frame) {
  return std::any_of(frame.Controls().begin(), frame.Controls().end(), [&item](Control* other) {
    return other->Container() == &item;
  });
}

}  // namespace

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
