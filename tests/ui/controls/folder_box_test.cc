#include "ui/controls/folder_box.h"

#include <gtest/gtest.h>

#include <QTest>

#include "support/temporary_folder.h"
#include "ui/controls/widgets.h"

namespace vistaplot {
namespace {

TEST(FolderBox, PathsKeepTheStyleInWhichTheyWereNamed) {
  EXPECT_EQ(FolderAbove("/a/b"), "/a");
  EXPECT_EQ(FolderAbove("/a/"), "/");
  EXPECT_EQ(FolderAbove("/"), "/");
  EXPECT_EQ(FolderAbove("D:\\X\\Y"), "D:\\X");
  EXPECT_EQ(FolderAbove("D:\\X"), "D:\\");
  EXPECT_EQ(FolderAbove("D:/"), "D:/");
  EXPECT_EQ(FolderInside("/a", "b"), "/a/b");
  EXPECT_EQ(FolderInside("D:/", "X"), "D:/X");
  EXPECT_EQ(FolderInside("D:\\X", "Y"), "D:\\X\\Y");
}

TEST(FolderBox, TheUserWalksAnOldStyleTreeWithTheKeyboard) {
  const test::TemporaryFolder folder;
  folder.MakeFolder("DATA/INNER");
  folder.Write("file.txt", "no folder");
  PathRoots roots;
  roots.QuotelineDir = folder.Path();
  FolderBox box(roots, nullptr);
  QObject::connect(
      &box, &FolderBox::FolderChosen, [&box](const std::string& chosen) { box.SetFolder(chosen); });
  box.SetFolder("C:\\QL");
  ASSERT_EQ(box.List().count(), 2);  // ".." and DATA
  QTest::keyClick(&box.List(), Qt::Key_Down);
  QTest::keyClick(&box.List(), Qt::Key_Return);
  EXPECT_EQ(box.Line().text(), "C:\\QL\\DATA");
  EXPECT_EQ(box.List().item(1)->text(), "INNER");
  QTest::keyClick(&box.List(), Qt::Key_Return);
  EXPECT_EQ(box.Line().text(), "C:\\QL");
  QTest::keyClicks(&box.Line(), "\\NONE");
  EXPECT_EQ(box.List().count(), 0);
}

}  // namespace
}  // namespace vistaplot
