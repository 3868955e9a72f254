#include "ui/controls/widgets.h"

#include <gtest/gtest.h>

namespace vistaplot {
namespace {

constexpr const char* kCaption = "% of data to g&raph";

struct LabelWorld {
  CaptionLabel label{nullptr};
  int line = label.fontMetrics().lineSpacing();
  int whole = label.fontMetrics().size(Qt::TextShowMnemonic, kCaption).width();

  LabelWorld() { label.show(); }

  void Place(int width, int height) {
    label.resize(width, height);
    label.SetCaption(kCaption);
  }
};

TEST(CaptionLabel, WhatFitsIsShownInAsManyLinesAsThereIsRoomFor) {
  LabelWorld world;
  world.Place(world.whole + 20, world.line);
  EXPECT_EQ(world.label.Fitted(), kCaption);
  world.Place(world.whole * 2 / 3, 2 * world.line);
  EXPECT_EQ(world.label.Fitted().count(u'\n'), 1);
  EXPECT_FALSE(world.label.Fitted().contains(u'…'));
  EXPECT_EQ(world.label.toolTip(), "");
}

TEST(CaptionLabel, WhatDoesNotFitEndsInAnEllipsisAndIsToldAsAToolTip) {
  LabelWorld world;
  for (const int lines : {1, 2}) {
    world.Place(world.whole / 3, lines * world.line + 1);
    EXPECT_EQ(world.label.Fitted().count(u'\n'), lines - 1);
    EXPECT_TRUE(world.label.Fitted().endsWith(u'…')) << world.label.Fitted().toStdString();
    EXPECT_EQ(world.label.toolTip(), "% of data to graph");
    EXPECT_EQ(world.label.text(), kCaption) << "read out whole";
  }
  world.label.resize(world.whole + 20, world.line);
  EXPECT_EQ(world.label.toolTip(), "");
}

}  // namespace
}  // namespace vistaplot
