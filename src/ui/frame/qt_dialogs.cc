#include "ui/frame/qt_dialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include "ui/controls/widgets.h"
#include "ui/frame/escape_watch.h"
#include "ui/frame/file_dialog.h"

namespace vistaplot {

namespace {

constexpr const char* kProgramName = "Vistaplot";

QString Title(const std::string& title) {
  return title.empty() ? QString::fromLatin1(kProgramName) : QtText(title);
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::kCancel:
      return QMessageBox::Cancel;
    case Answer::kYes:
      return QMessageBox::Yes;
    case Answer::kNo:
      return QMessageBox::No;
    case Answer::kOk:
      break;
  }
  return QMessageBox::Ok;
}

Answer AnswerOf(int button) {
  if (button == QMessageBox::Yes) return Answer::kYes;
  if (button == QMessageBox::No) return Answer::kNo;
  if (button == QMessageBox::Cancel) return Answer::kCancel;
  return Answer::kOk;
}

}  // namespace

void QtDialogs::Use(QWidget* window, const PathRoots& roots) {
  window_ = window;
  roots_ = &roots;
}

QWidget* QtDialogs::Owner() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : window_.data();
}

Answer QtDialogs::ShowMessage(const MessageRequest& request) {
  const PointerPause pause;
  const auto icon = request.icon == Icon::kQuestion ? QMessageBox::Question : QMessageBox::NoIcon;
  QMessageBox box(
      icon, Title(request.title), QtText(request.text), ButtonsOf(request.buttons), Owner());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(ButtonOf(request.default_answer));
  const int button = box.exec();
  guard_.ThrowIfEnded();
  return AnswerOf(button);
}

std::optional<std::string> QtDialogs::AskText(const InputRequest& request) {
  const PointerPause pause;
  QInputDialog box(Owner());
  box.setWindowTitle(Title(request.title));
  box.setLabelText(QtText(request.prompt));
  box.setTextValue(QtText(request.proposed));
  const bool entered = box.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  if (!entered) return std::nullopt;
  return PlainUtf8(box.textValue());
}

std::vector<std::string> QtDialogs::ChooseFilesToOpen(const FileRequest& request) {
  const PointerPause pause;
  FileDialog dialog(request, roots_, Owner());
  dialog.setWindowTitle(Title(request.title));
  dialog.ToOpen();
  const bool chosen = dialog.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  return chosen ? dialog.Paths() : std::vector<std::string>();
}

std::optional<std::string> QtDialogs::ChooseFileToSave(const FileRequest& request) {
  const PointerPause pause;
  FileDialog dialog(request, roots_, Owner());
  dialog.setWindowTitle(Title(request.title));
  dialog.ToSave();
  const bool chosen = dialog.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  if (!chosen) return std::nullopt;
  return dialog.Paths().front();
}

void QtDialogs::EndProgram(bool fatal) {
  throw ProgramEnded{fatal ? kExitFatal : kExitDone};
}

}  // namespace vistaplot
