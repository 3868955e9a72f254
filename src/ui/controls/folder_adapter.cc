// Text boxes that name a folder or a drive.

#include <QComboBox>

#include "base/files.h"
#include "base/host_path.h"
#include "controls/value_controls.h"
#include "ui/controls/adapters.h"
#include "ui/controls/folder_box.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

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
    combo_->setPlaceholderText(combo_->count() == 0 ? QStringLiteral("no drives")
                                                    : QStringLiteral("drive"));
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

std::unique_ptr<ControlAdapter> MakeFolderBox(TextBox& box, const AdapterParts& parts) {
  return std::make_unique<FolderAdapter>(box, parts);
}

std::unique_ptr<ControlAdapter> MakeDriveBox(TextBox& box, const AdapterParts& parts) {
  return std::make_unique<DriveAdapter>(box, parts);
}

}  // namespace vistaplot
