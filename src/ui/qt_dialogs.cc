#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTreeView>

#include "base/text.h"
#include "ui/pointer_pause.h"
#include "ui/qt_text.h"

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

/// The patterns of one filter: "*.a;*.b" as "*.a *.b"; "*.*" means every name.
QString Patterns(std::string_view list) {
  QStringList patterns;
  for (const std::string_view part : Split(list, ';')) {
    const QString pattern = QtText(TrimBlanks(part));
    if (!pattern.isEmpty()) patterns += pattern == u"*.*" ? QStringLiteral("*") : pattern;
  }
  return patterns.join(u' ');
}

/// A filter's text without the patterns that it may show in brackets.
QString Description(std::string_view text) {
  const QString whole = QtText(text).trimmed();
  const qsizetype bracket = whole.lastIndexOf(u'(');
  return bracket > 0 && whole.endsWith(u')') ? whole.left(bracket).trimmed() : whole;
}

bool IsPattern(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

/// The file name's ending becomes that of the chosen filter's first pattern; filters of all names
/// leave it.
void FollowFilter(QFileDialog& dialog, const QString& filter) {
  static const QRegularExpression first_ending(QStringLiteral("\\(\\*\\.([^*?\\s)]+)"));
  const QRegularExpressionMatch ending = first_ending.match(filter);
  const QStringList files = dialog.selectedFiles();
  if (!ending.hasMatch() || files.isEmpty()) return;
  const QString suffix = ending.captured(1);
  const QFileInfo file(files.front());
  dialog.setDefaultSuffix(suffix);
  if (file.isDir()) return;
  dialog.selectFile(file.absoluteDir().filePath(file.completeBaseName() + u'.' + suffix));
}

/// Sizes, types and dates in full; the names take the rest.
void GiveColumnsRoom(QFileDialog& dialog) {
  constexpr QSize kRoomy(820, 520);
  dialog.resize(dialog.size().expandedTo(kRoomy));
  const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  if (list == nullptr) return;
  QHeaderView& header = *list->header();
  for (int column = 0; column < header.count(); ++column) {
    header.setSectionResizeMode(column,
                                column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
}

/// The list of filters shows their own texts: the toolkit's form of "All (*.*)" reads "All (*)".
void ShowFiltersAsGiven(QFileDialog& dialog, std::string_view old_style) {
  auto* list = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
  const std::vector<std::string_view> parts = Split(old_style, '|');
  if (list == nullptr || static_cast<std::size_t>(list->count()) != parts.size() / 2) return;
  for (int i = 0; i < list->count(); ++i) {
    list->setItemText(i, QtText(TrimBlanks(parts[2 * static_cast<std::size_t>(i)])));
  }
}

std::vector<std::string> Paths(const QStringList& files) {
  std::vector<std::string> paths;
  for (const QString& file : files) paths.push_back(QFile::encodeName(file).toStdString());
  return paths;
}

}  // namespace

QStringList NameFilters(std::string_view old_style) {
  QStringList filters;
  const std::vector<std::string_view> parts = Split(old_style, '|');
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    const QString patterns = Patterns(parts[i + 1]);
    if (!patterns.isEmpty())
      filters += Description(parts[i]) + QStringLiteral(" (") + patterns + u')';
  }
  return filters;
}

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

void QtDialogs::SetUp(QFileDialog& dialog, const FileRequest& request) const {
  // The toolkit's own dialog matches names in any case, which desktops' dialogs do not.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setWindowTitle(Title(request.title));
  const QStringList filters = NameFilters(request.filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  ShowFiltersAsGiven(dialog, request.filter);
  GiveColumnsRoom(dialog);
  if (!request.initial_folder.empty()) {
    const std::string& text = request.initial_folder;
    const std::string folder = roots_ == nullptr ? text : HostPath(text, *roots_);
    dialog.setDirectory(QFile::decodeName(folder.c_str()));
  }
  if (!request.file_name.empty() && !IsPattern(request.file_name)) {
    dialog.selectFile(QtText(request.file_name));
  }
}

std::vector<std::string> QtDialogs::ChooseFilesToOpen(const FileRequest& request) {
  const PointerPause pause;
  QFileDialog dialog(Owner());
  SetUp(dialog, request);
  const auto one = request.must_exist ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
  dialog.setFileMode(request.multiple ? QFileDialog::ExistingFiles : one);
  const bool chosen = dialog.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  return chosen ? Paths(dialog.selectedFiles()) : std::vector<std::string>();
}

std::optional<std::string> QtDialogs::ChooseFileToSave(const FileRequest& request) {
  const PointerPause pause;
  QFileDialog dialog(Owner());
  SetUp(dialog, request);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwrite_prompt);
  if (!request.default_extension.empty() && !IsPattern(request.default_extension)) {
    dialog.setDefaultSuffix(QtText(request.default_extension));
  }
  QObject::connect(
      &dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        FollowFilter(dialog, filter);
      });
  const bool chosen = dialog.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  if (!chosen) return std::nullopt;
  return Paths(dialog.selectedFiles()).front();
}

void QtDialogs::EndProgram(bool fatal) {
  throw ProgramEnded{fatal ? kExitFatal : kExitDone};
}

}  // namespace vistaplot
