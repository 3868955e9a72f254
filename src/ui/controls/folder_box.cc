#include "ui/controls/folder_box.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QVBoxLayout>

#include "base/files.h"
#include "base/host_path.h"
#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/list_focus.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr const char* kSeparators = "/\\";
constexpr const char* kAbove = "..";

bool IsDrive(std::string_view text) {
  return text.size() == 2 && text[1] == ':';
}

class FolderAdapter : public ControlAdapter {
 public:
  FolderAdapter(TextBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard),
        box_(box),
        folders_(new FolderBox(*parts.roots, parts.parent)) {
    SetWidget(folders_);
    connect(folders_, &FolderBox::FolderChosen, this, [this](const std::string& folder) {
      Act([this, &folder] { box_.SetText(folder); });
    });
  }

  bool Follows() const override { return true; }

  std::vector<QWidget*> TabStops() const override { return {&folders_->Line(), &folders_->List()}; }

  void SetAccessibleName(const QString& name, bool /*labelled*/) override {
    folders_->Line().setAccessibleName(name);
  }

 protected:
  void CopyValue() override { folders_->SetFolder(box_.Text()); }

 private:
  TextBox& box_;
  FolderBox* folders_;
};

class DriveAdapter : public ControlAdapter {
 public:
  DriveAdapter(TextBox& box, const AdapterParts& parts)
      : ControlAdapter(box, parts.guard), box_(box), combo_(new QComboBox(parts.parent)) {
    SetWidget(combo_);
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const std::string drive = std::string(1, letter) + ':';
      if (FolderExists(HostPath(drive + '/', *parts.roots))) combo_->addItem(QtText(drive));
    }
    const bool has_drives = combo_->count() > 0;
    combo_->setPlaceholderText(has_drives ? QStringLiteral("drive") : QStringLiteral("no drives"));
    // The keyboard then goes to the folder's line at once.
    if (!has_drives) combo_->setFocusPolicy(Qt::NoFocus);
    connect(combo_, &QComboBox::textActivated, this, [this](const QString& drive) {
      Act([this, &drive] { box_.SetText(PlainUtf8(drive)); });
    });
  }

  bool OneLine() const override { return true; }

 protected:
  void CopyValue() override {
    combo_->setCurrentIndex(combo_->findText(QtText(box_.Text()), Qt::MatchFixedString));
  }

 private:
  TextBox& box_;
  QComboBox* combo_;
};

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

std::unique_ptr<ControlAdapter> MakeFolderBox(TextBox& box, const AdapterParts& parts) {
  return std::make_unique<FolderAdapter>(box, parts);
}

std::unique_ptr<ControlAdapter> MakeDriveBox(TextBox& box, const AdapterParts& parts) {
  return std::make_unique<DriveAdapter>(box, parts);
}

}  // namespace vistaplot
