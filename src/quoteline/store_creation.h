// How a service directory comes to its database: by one program at a time, and whole or not at all.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/result.h"

namespace vistaplot {

/// The making of a service directory, or of things in it. It holds the folder against other
/// programs that do the same, which wait; readers and writers of a database that is there do not.
/// What it has made goes with it unless kept.
class DirectoryMaking {
 public:
  /// Makes the folder where it is missing, and waits for others. Errors 75, 70. Where the file
  /// system knows no locks it goes on, and the rename alone keeps two makers apart.
  static Result<DirectoryMaking> Begin(const std::string& directory);

  ~DirectoryMaking();
  DirectoryMaking(DirectoryMaking&& other) noexcept;
  DirectoryMaking& operator=(DirectoryMaking&&) = delete;

  /// Makes a folder and those above it, as MakeFolders.
  Status MakeFolder(const std::string& path);
  /// Notes a file before it is written. One that is there already is none of this maker's.
  void NoteFile(const std::string& path);
  /// All that was made so far stays.
  void Keep() { made_.clear(); }

 private:
  DirectoryMaking(int folder, std::vector<std::string> made)
      : folder_(folder), made_(std::move(made)) {}

  int folder_;  // descriptor of the folder, -1 when moved from
  std::vector<std::string> made_;
};

/// Makes an empty database: a draft of a name of its own beside its place, synced, then given the
/// name. Fails when a file of that name is there, or says why it could not be written; nothing is
/// left behind then.
Status CreateStore(const std::string& directory);

}  // namespace vistaplot
