// How a service directory comes to its database: by one program at a time, and whole or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/result.h"
#include "quoteline/database.h"

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

// The first form of the database, as programs up to this one wrote it: what of it differs from the
// form of today. It is read as it stands, and moved over when it is first opened for writing.

/// Check value of the first form: sixteen interleaved pairs of sums over the 32-bit words (of the
/// words, and of the running sums, modulo 2^32; cf. J. Fletcher, "An Arithmetic Checksum for
/// Serial Transmissions", IEEE Trans. Comm. 30, 1982), folded into one word. A last incomplete
/// word counts as filled up with zeros. The folding lets about one changed bit in 2,000 pass,
/// which is why it was given up.
std::uint32_t FirstFormChecksum(std::span<const std::byte> bytes);

/// Moves a database of the first form over, in one transaction; another form is left alone. What
/// the symbol index says of an issue goes before what its row says, because only the index had a
/// check value. A history that fails its old check value gets one that it fails, too. Fails, with
/// nothing changed, when the structure of the file or the calendar is damaged.
Status MoveToSecondForm(Database& database);

}  // namespace vistaplot
