#include "ui/frame/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "support/temporary_folder.h"
#include "ui/controls/widgets.h"
#include "ui/frame/file_dialog.h"
#include "ui/hands.h"

namespace vistaplot::test {
namespace {

struct Boxes {
  EventGuard guard;
  QtDialogs dialogs{guard};
};

TEST(NameFilters, OldStyleFiltersBecomeTheToolkits) {
  EXPECT_EQ(NameFilters("Summary (*.SUM)|*.SUM|All (*.*)|*.*"),
            QStringList({"Summary (*.SUM)", "All (*)"}));
  EXPECT_EQ(NameFilters("FAM (*.FAM)|*.FAM|"), QStringList({"FAM (*.FAM)"}));
  EXPECT_EQ(NameFilters("Pictures|*.png; *.svg"), QStringList({"Pictures (*.png *.svg)"}));
  EXPECT_EQ(NameFilters(""), QStringList());
}

TEST(QtDialogs, MessagesShowTextTitleAndButtonsAndGiveTheAnswer) {
  Boxes boxes;
  OnNextBox<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Vistaplot");
    EXPECT_EQ(box.text(), "2 < 3 & so");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  EXPECT_EQ(boxes.dialogs.ShowMessage({.text = "2 < 3 & so", .title = {}}), Answer::kOk);
  const MessageRequest question{.text = "Keep it?",
                                .title = "Error",
                                .buttons = Buttons::kYesNoCancel,
                                .icon = Icon::kQuestion,
                                .default_answer = Answer::kNo};
  for (const auto& [key, answer] :
       {std::pair(Qt::Key_Return, Answer::kNo), std::pair(Qt::Key_Escape, Answer::kCancel)}) {
    OnNextBox<QMessageBox>([key = key](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), "Error");
      QTest::keyClick(&box, key);
    });
    EXPECT_EQ(boxes.dialogs.ShowMessage(question), answer);
  }
}

TEST(QtDialogs, InputProposesATextAndCancelGivesNone) {
  Boxes boxes;
  const InputRequest request{.prompt = "Name", .title = "Save", .proposed = "TRIO"};
  OnNextBox<QInputDialog>([](QInputDialog& box) {
    EXPECT_EQ(box.textValue(), "TRIO");
    EXPECT_EQ(box.windowTitle() + box.labelText(), "SaveName");
    box.setTextValue("DUO");
    box.accept();
  });
  EXPECT_EQ(boxes.dialogs.AskText(request), "DUO");
  OnNextBox<QInputDialog>([](QInputDialog& box) { box.reject(); });
  EXPECT_EQ(boxes.dialogs.AskText(request), std::nullopt);
}

TEST(QtDialogs, FilesAreOfferedInAnyCaseFromAnOldStyleFolder) {
  const TemporaryFolder folder;
  for (const char* name : {"lower.sum", "UPPER.SUM", "other.txt"}) folder.Write(name, "x");
  PathRoots roots;
  roots.QuotelineDir = folder.Path();
  Boxes boxes;
  boxes.dialogs.Use(nullptr, roots);
  QTimer::singleShot(300, [&folder] {  // the folder is read by a thread of the toolkit
    auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), "Select");
    const auto* model = box->findChild<QFileSystemModel*>();
    EXPECT_EQ(model->rowCount(model->index(QtText(folder.Path()))), 2);
    EXPECT_EQ(box->findChild<QComboBox*>("fileTypeCombo")->itemText(1), "All (*.*)");
    auto* name = box->findChild<QLineEdit*>("fileNameEdit");
    name->setText("*.TXT");
    QMetaObject::invokeMethod(box, "accept");
    EXPECT_TRUE(box->isVisible() && name->text().isEmpty()) << "a pattern is no file";
    EXPECT_EQ(box->nameFilters().front(), "*.TXT (*.TXT)");
    name->setText("\"LOWER.sum\" \"UPPER.SUM\"");
    QMetaObject::invokeMethod(box, "accept");
    if (box->isVisible()) box->reject();
  });
  const std::vector<std::string> chosen =
      boxes.dialogs.ChooseFilesToOpen({.title = "Select",
                                       .filter = "Summary (*.SUM)|*.SUM|All (*.*)|*.*",
                                       .file_name = "*.SUM",
                                       .default_extension = {},
                                       .initial_folder = "C:\\QL",
                                       .multiple = true,
                                       .must_exist = true});
  EXPECT_EQ(chosen, std::vector({folder.Path("lower.sum"), folder.Path("UPPER.SUM")}));
}

TEST(QtDialogs, TheSavedNameTakesTheChosenFiltersEndingAndKeepsItsFolder) {
  const TemporaryFolder folder;
  const std::string elsewhere = folder.MakeFolder("elsewhere");
  Boxes boxes;
  OnNextBox<QFileDialog>([&elsewhere](QFileDialog& box) {
    box.findChild<QLineEdit*>("fileNameEdit")->setText(QtText(elsewhere + "/mine.png"));
    emit box.filterSelected("All (*.*)");
    emit box.filterSelected("SVG drawing (*.svg)");
    QMetaObject::invokeMethod(&box, "accept");
  });
  const auto path = boxes.dialogs.ChooseFileToSave(
      {.title = "Save Chart As",
       .filter = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|All (*.*)|*.*",
       .file_name = "chart.png",
       .default_extension = "png",
       .initial_folder = folder.Path(),
       .overwrite_prompt = true});
  EXPECT_EQ(path, elsewhere + "/mine.svg");
}

TEST(QtDialogs, AFileOfAnotherCaseIsReplacedOnlyWhenAgreedTo) {
  const TemporaryFolder folder;
  folder.Write("chart.png", "old");
  const PathRoots roots;
  Boxes boxes;
  boxes.dialogs.Use(nullptr, roots);
  std::vector<QString> questions;
  const auto answer = [&questions](QMessageBox::StandardButton button) {
    OnNextBox<QMessageBox>([&questions, button](QMessageBox& box) {
      questions.push_back(box.text());
      EXPECT_EQ(box.standardButton(box.defaultButton()), QMessageBox::No);
      box.button(button)->click();
    });
  };
  OnNextBox<QFileDialog>([&](QFileDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Save Chart As");
    box.findChild<QLineEdit*>("fileNameEdit")->setText("Chart.png");
    answer(QMessageBox::No);
    QMetaObject::invokeMethod(&box, "accept");
    EXPECT_TRUE(box.isVisible());
    answer(QMessageBox::Yes);
    QMetaObject::invokeMethod(&box, "accept");
  });
  const auto path = boxes.dialogs.ChooseFileToSave({.title = "Save Chart As",
                                                    .filter = "PNG picture (*.png)|*.png",
                                                    .file_name = "chart.png",
                                                    .default_extension = "png",
                                                    .initial_folder = folder.Path(),
                                                    .overwrite_prompt = true});
  ASSERT_TRUE(path);
  EXPECT_EQ(HostPath(*path, roots), folder.Path("chart.png"));
  const QString question = "chart.png already exists.\nDo you want to replace it?";
  EXPECT_EQ(questions, (std::vector{question, question}));
}

TEST(QtDialogs, EndOfTheProgramUnwindsThroughAnOpenBox) {
  Boxes boxes;
  OnNextBox<QMessageBox>([&boxes](QMessageBox& box) {
    boxes.guard.Run([&boxes] { boxes.dialogs.EndProgram(true); });
    box.reject();
  });
  EXPECT_THROW(boxes.dialogs.Say("still here"), ProgramEnded);
  EXPECT_EQ(boxes.guard.Status(), kExitFatal);
}

}  // namespace
}  // namespace vistaplot::test
