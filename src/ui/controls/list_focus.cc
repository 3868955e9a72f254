#include "ui/controls/list_focus.h"

#include <QEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace vistaplot {

namespace {

constexpr int kFrame = 2;  ///< pixels
constexpr int kEdge = 1;   ///< of the row's own colour outside of the frame about a selected entry
constexpr int kPadding = 3;  ///< about an entry's text, where the frame runs

QRegion FrameOf(const QRect& outside) {
  return QRegion(outside) - QRegion(outside.adjusted(kFrame, kFrame, -kFrame, -kFrame));
}

void FillRegion(QPainter& painter, const QRegion& region, const QColor& color) {
  for (const QRect& part : region) painter.fillRect(part, color);
}

class EntryDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter,
             const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem plain = option;
    plain.state &= ~QStyle::State_HasFocus;
    plain.widget->style()->drawPrimitive(
        QStyle::PE_PanelItemViewItem, &plain, painter, plain.widget);
    plain.rect.adjust(kPadding, 0, 0, 0);
    QStyledItemDelegate::paint(painter, plain, index);
    if (!option.state.testFlag(QStyle::State_HasFocus)) return;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const auto role = selected ? QPalette::HighlightedText : QPalette::Highlight;
    const QRect edge = option.rect.adjusted(kEdge, kEdge, -kEdge, -kEdge);
    FillRegion(*painter, FrameOf(edge), option.palette.color(role));
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(kPadding, 2 * kPadding);
  }
};

/// Lies over a list's edge while the list has the keyboard.
class ListFrame : public QWidget {
 public:
  explicit ListFrame(QAbstractItemView& list) : QWidget(&list), list_(list) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    list.installEventFilter(this);
    Follow();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type == QEvent::Resize || type == QEvent::FocusIn || type == QEvent::FocusOut) Follow();
    return QWidget::eventFilter(watched, event);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    FillRegion(painter, FrameOf(rect()), palette().color(QPalette::Highlight));
  }

 private:
  void Follow() {
    setVisible(list_.hasFocus());
    setGeometry(list_.rect());
    setMask(FrameOf(rect()));
    raise();
  }

  QAbstractItemView& list_;
};

}  // namespace

void FrameFocus(QAbstractItemView& list) {
  list.setItemDelegate(new EntryDelegate(&list));
  new ListFrame(list);
}

}  // namespace vistaplot
