// A box in which the user walks to a folder: its path to type, and the folders inside to step into.
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <string>
#include <string_view>

#include "base/host_path.h"

namespace vistaplot {

/// The folder above, in the style of `folder`; the topmost one stays: "/a/b" gives "/a", "D:\X"
/// gives "D:\".
std::string FolderAbove(std::string_view folder);

/// `folder` with a folder inside it, parted by the separator that `folder` uses.
std::string FolderInside(std::string_view folder, std::string_view name);

class FolderBox : public QWidget {
  Q_OBJECT

 public:
  /// `roots` says where old-style paths lie; it outlives the box.
  FolderBox(const PathRoots& roots, QWidget* parent);

  /// Shows a folder as it was named. Without one the list starts at the user's home.
  void SetFolder(const std::string& folder);

  QLineEdit& Line() { return line_; }
  QListWidget& List() { return list_; }

 signals:
  /// The user typed the path or stepped into a folder.
  void FolderChosen(const std::string& folder);

 private:
  void Step(const QListWidgetItem& item);
  std::string ListedFolder() const;

  const PathRoots& roots_;
  std::string folder_;
  QLineEdit& line_;
  QListWidget& list_;
};

}  // namespace vistaplot
