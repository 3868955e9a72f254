#include "ui/controls/list_focus.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QTest>

namespace vistaplot {
namespace {

/// A list and, beside it, something else that can take the keyboard.
struct FocusWorld {
  QWidget window;
  QListWidget list{&window};
  QListWidget other{&window};

  explicit FocusWorld(const QPalette& palette) {
    window.resize(400, 200);
    list.setGeometry(0, 0, 200, 200);
    other.setGeometry(200, 0, 200, 200);
    list.setPalette(palette);
    list.addItems({"a", "b", "c"});
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    FrameFocus(list);
    window.show();
    window.activateWindow();
    list.setFocus();
    list.setCurrentRow(1);
    QApplication::processEvents();
  }

  QColor Edge() { return list.grab().toImage().pixelColor(0, 150); }

  /// Where the frame about an entry runs.
  QColor FrameOfRow(int row) {
    const QRect place = list.visualItemRect(list.item(row));
    return list.viewport()->grab().toImage().pixelColor(place.center().x(), place.top() + 2);
  }
};

QPalette Dark() {
  QPalette palette(QColor(42, 46, 50));
  palette.setColor(QPalette::Base, QColor(27, 30, 32));
  palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
  palette.setColor(QPalette::HighlightedText, QColor(252, 252, 252));
  return palette;
}

TEST(ListFocus, FramesShowTheListAndItsCurrentEntryOnLightAndDarkGround) {
  for (const QPalette& palette : {QApplication::palette(), Dark()}) {
    FocusWorld world(palette);
    const QColor highlight = palette.color(QPalette::Highlight);
    EXPECT_EQ(world.Edge(), highlight);
    EXPECT_EQ(world.FrameOfRow(1), palette.color(QPalette::HighlightedText)) << "selected";
    EXPECT_EQ(world.FrameOfRow(2), palette.color(QPalette::Base));
    QTest::keyClick(&world.list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(world.FrameOfRow(1), highlight) << "selected, not current";
    EXPECT_EQ(world.FrameOfRow(2), highlight) << "current, not selected";
    world.other.setFocus();
    EXPECT_NE(world.Edge(), highlight);
    EXPECT_EQ(world.FrameOfRow(2), palette.color(QPalette::Base));
  }
}

}  // namespace
}  // namespace vistaplot
