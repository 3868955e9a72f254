#include "ui/controls/folder_box.h"

#include <QDir>
#include <QFile>
#include <QVBoxLayout>

#include "base/user_folders.h"
#include "ui/controls/list_focus.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

constexpr const char* kSeparators = "/\\";
constexpr const char* kAbove = "..";

bool IsDrive(std::string_view text) {
  return text.size() == 2 && text[1] == ':';
}

}  // namespace

std::string FolderAbove(std::string_view folder) {
  const std::size_t end = folder.find_last_not_of(kSeparators);
  if (end == std::string_view::npos || IsDrive(folder.substr(0, end + 1))) {
    return std::string(folder);
  }
  const std::size_t cut = folder.find_last_of(kSeparators, end);
  if (cut == std::string_view::npos) return std::string(folder);
  const std::string_view above = folder.substr(0, cut);
  return std::string(above.empty() || IsDrive(above) ? folder.substr(0, cut + 1) : above);
}

std::string FolderInside(std::string_view folder, std::string_view name) {
  std::string inside(folder);
  const bool old_style =
      folder.find('/') == std::string_view::npos && folder.find('\\') != std::string_view::npos;
  if (!inside.empty() && inside.find_last_of(kSeparators) != inside.size() - 1) {
    inside += old_style ? '\\' : '/';
  }
  return inside.append(name);
}

FolderBox::FolderBox(const PathRoots& roots, QWidget* parent)
    : QWidget(parent), roots_(roots), line_(*new QLineEdit(this)), list_(*new QListWidget(this)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(&line_);
  rows->addWidget(&list_);
  list_.setAccessibleName(QStringLiteral("Folders"));
  list_.setUniformItemSizes(true);
  FrameFocus(list_);
  connect(&line_, &QLineEdit::textEdited, this, [this](const QString& text) {
    emit FolderChosen(PlainUtf8(text));
  });
  connect(&list_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    Step(*item);
  });
  SetFolder({});
}

void FolderBox::SetFolder(const std::string& folder) {
  folder_ = folder;
  if (line_.text() != QtText(folder)) line_.setText(QtText(folder));
  const QDir dir(QFile::decodeName(HostPath(ListedFolder(), roots_).c_str()));
  list_.clear();
  if (!dir.exists()) return;
  list_.addItem(QString::fromLatin1(kAbove));
  list_.addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase));
  list_.setCurrentRow(0);
}

std::string FolderBox::ListedFolder() const {
  return folder_.empty() ? HomeFolder() : folder_;
}

void FolderBox::Step(const QListWidgetItem& item) {
  const std::string name = PlainUtf8(item.text());
  const std::string from = ListedFolder();
  emit FolderChosen(name == kAbove ? FolderAbove(from) : FolderInside(from, name));
}

}  // namespace vistaplot
