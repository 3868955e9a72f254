// The main window's tool bar and status line, made from the frame's panels: a panel that holds
// buttons is a tool bar, every other one a field of the status line.
#pragma once

#include <QIcon>
#include <QMainWindow>
#include <QToolBar>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "controls/value_controls.h"
#include "ui/controls/control_adapter.h"

namespace vistaplot {

/// One tool button as an action of its bar, with the icon of its control's name.
class ToolAdapter : public ControlAdapter {
  Q_OBJECT

 public:
  /// `tip` is the box that shows the tip of the tool under the pointer; null when there is none.
  ToolAdapter(Button& button, QToolBar& bar, const TextBox* tip, EventGuard& guard);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void CopyVisible() override;
  void CopyEnabled() override;
  void CopyCaption() override;

 private:
  QString TipText() const;
  void PointerCame();

  Button& button_;
  QAction* action_;
  const TextBox* tip_;
};

class FrameTools : public QObject {
  Q_OBJECT

 public:
  FrameTools(const Form& frame, QMainWindow& window, EventGuard& guard);

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// The pointer is over no tool any more.
  void ToolsLeft();

 private:
  void AddToolBar(const Panel& panel, const Form& frame, QMainWindow& window, EventGuard& guard);

  std::vector<std::unique_ptr<ControlAdapter>> adapters_;
};

// Icons drawn as SVG, in the colours of the desktop's palette and sharp at any scale.

/// The tool icon of that name (a tool button's control name); a null icon when there is none.
QIcon ToolIcon(const QString& name);

/// The program's own icon, in colours of its own.
QIcon ProgramIcon();

}  // namespace vistaplot
