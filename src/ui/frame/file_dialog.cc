#include "ui/frame/file_dialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTreeView>
#include <algorithm>
#include <string_view>

#include "base/files.h"
#include "base/text.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

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
  static const QRegularExpression kFirstEnding(QStringLiteral("\\(\\*\\.([^*?\\s)]+)"));
  const QRegularExpressionMatch ending = kFirstEnding.match(filter);
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

/// The box that names are typed into; null where the toolkit calls it otherwise.
QLineEdit* NameBox(const QFileDialog& dialog) {
  return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// One name as it stands, or several in double quotes.
QStringList TypedNames(const QString& text) {
  if (!text.contains(u'"')) return text.isEmpty() ? QStringList() : QStringList(text);
  QStringList names;
  const QStringList parts = text.split(u'"');
  for (qsizetype i = 1; i < parts.size(); i += 2) names += parts[i];
  return names;
}

std::string PathOf(const QString& file) {
  return QFile::encodeName(file).toStdString();
}

}  // namespace

QStringList NameFilters(std::string_view old_style) {
  QStringList filters;
  const std::vector<std::string_view> parts = Split(old_style, '|');
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    const QString patterns = Patterns(parts[i + 1]);
    if (patterns.isEmpty()) continue;
    filters += Description(parts[i]) + QStringLiteral(" (") + patterns + u')';
  }
  return filters;
}

FileDialog::FileDialog(const FileRequest& request, const PathRoots* roots, QWidget* owner)
    : QFileDialog(owner), request_(request), roots_(roots) {
  // The toolkit's own dialog matches names in any case, which desktops' dialogs do not.
  setOption(QFileDialog::DontUseNativeDialog);
  const QStringList filters = NameFilters(request.filter);
  if (!filters.isEmpty()) setNameFilters(filters);
  ShowFiltersAsGiven(*this, request.filter);
  GiveColumnsRoom(*this);
  if (!request.initial_folder.empty()) {
    setDirectory(QFile::decodeName(HostPathOf(request.initial_folder).c_str()));
  }
  if (!request.file_name.empty() && !IsPattern(request.file_name)) {
    selectFile(QtText(request.file_name));
  }
}

void FileDialog::ToOpen() {
  const auto one = request_.must_exist ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
  setFileMode(request_.multiple ? QFileDialog::ExistingFiles : one);
}

void FileDialog::ToSave() {
  setAcceptMode(QFileDialog::AcceptSave);
  setFileMode(QFileDialog::AnyFile);
  setOption(QFileDialog::DontConfirmOverwrite, !request_.overwrite_prompt);
  if (!request_.default_extension.empty() && !IsPattern(request_.default_extension)) {
    setDefaultSuffix(QtText(request_.default_extension));
  }
  connect(this, &QFileDialog::filterSelected, this, [this](const QString& filter) {
    FollowFilter(*this, filter);
  });
}

std::vector<std::string> FileDialog::Paths() const {
  if (!typed_.empty()) return typed_;
  std::vector<std::string> paths;
  for (const QString& file : selectedFiles()) paths.push_back(PathOf(file));
  return paths;
}

void FileDialog::accept() {
  if (acceptMode() == QFileDialog::AcceptOpen) {
    if (TakesTyped()) return done(Accepted);
    if (FiltersByTyped()) return;
  }
  if (MayReplaceOtherCase()) QFileDialog::accept();
}

// The toolkit drops a name that does not stand so in the folder when others do.
bool FileDialog::TakesTyped() {
  typed_.clear();
  const auto* box = NameBox(*this);
  if (box == nullptr) return false;
  for (const QString& name : TypedNames(box->text())) {
    const bool has_drive = name.indexOf(u':') == 1;
    typed_.push_back(HostPathOf(PathOf(has_drive ? name : directory().filePath(name))));
  }
  const bool fits = !typed_.empty() && (request_.multiple || typed_.size() == 1) &&
                    std::all_of(typed_.begin(), typed_.end(), FileExists);
  if (!fits) typed_.clear();
  return fits;
}

// True where a pattern was typed; the list shows what matches it from now on.
bool FileDialog::FiltersByTyped() {
  auto* box = NameBox(*this);
  if (box == nullptr || !IsPattern(box->text().toStdString())) return false;
  const std::string pattern = box->text().trimmed().toStdString();
  const std::string filters = pattern + '|' + pattern + '|' + request_.filter;
  setNameFilters(NameFilters(filters));
  ShowFiltersAsGiven(*this, filters);
  box->clear();
  return true;
}

// The program finds files in any case, so "Chart.png" is written over a "chart.png", which the
// toolkit does not ask about.
bool FileDialog::MayReplaceOtherCase() {
  const QStringList files = selectedFiles();
  const bool saving = acceptMode() == QFileDialog::AcceptSave && request_.overwrite_prompt;
  if (!saving || files.isEmpty()) return true;
  const std::string path = PathOf(files.front());
  const std::string written = HostPathOf(path);
  if (FileExists(path) || !FileExists(written)) return true;
  const QString name = QFileInfo(QFile::decodeName(written.c_str())).fileName();
  const auto question = QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(name);
  return QMessageBox::warning(
             this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
         QMessageBox::Yes;
}

std::string FileDialog::HostPathOf(const std::string& text) const {
  return roots_ == nullptr ? text : HostPath(text, *roots_);
}

}  // namespace vistaplot
