// The first form of the database, as programs up to this one wrote it: what of it differs from the
// form of today. It is read as it stands, and moved over when it is first opened for writing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/result.h"
#include "quoteline/database.h"

namespace vistaplot {

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
