// The common file dialog as the program asks for it: old-style filters, initial folders by
// old-style text, typed names of files to open in any case or of old-style drives. A typed pattern
// ("*.SUM") filters the list.
#pragma once

#include <QFileDialog>
#include <QStringList>
#include <string>
#include <string_view>
#include <vector>

#include "base/dialogs.h"
#include "base/host_path.h"

namespace vistaplot {

/// Old-style filters "Summary (*.SUM)|*.SUM|All (*.*)|*.*" as the toolkit's: "Summary (*.SUM)",
/// "All (*)". A pattern list is parted by ";"; a text without a pattern behind it is dropped.
QStringList NameFilters(std::string_view old_style);

class FileDialog : public QFileDialog {
  Q_OBJECT

 public:
  /// `roots` may be null: old-style texts are then taken as they stand. Both outlive the dialog.
  FileDialog(const FileRequest& request, const PathRoots* roots, QWidget* owner);

  // Which of the two it is for, before it is shown.
  void ToOpen();
  void ToSave();

  /// The host's paths of what was chosen, in the order of the selection.
  std::vector<std::string> Paths() const;

  void accept() override;

 private:
  bool TakesTyped();
  bool FiltersByTyped();
  bool MayReplaceOtherCase();
  std::string HostPathOf(const std::string& text) const;

  const FileRequest& request_;
  const PathRoots* roots_;
  std::vector<std::string> typed_;  ///< what was chosen by the names in the box
};

}  // namespace vistaplot
