// Choosing the name of a file to write, as the calculations screen does it everywhere.
#pragma once

#include <optional>
#include <string>

#include "base/dialogs.h"

namespace vistaplot {

/// Shows the save dialog until the user chooses a file, or gives up: the path, or nothing.
std::optional<std::string> ChooseSavePath(const FileRequest& request, Dialogs& dialogs);

}  // namespace vistaplot
