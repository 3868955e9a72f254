// The commands of the quoteline program. Each prints to standard output what it did, or to standard
// error what is wrong, and returns the program's exit status: 0, or 1 after a fault.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "quoteline/price_import.h"

namespace vistaplot {

/// Closes standard output, when all is printed. 0, or 1 with a message when not all of it was
/// written: a full disk shows only here, on some file systems only at the close.
int FinishOutput();

/// Says on one line of standard error what is wrong, control characters as "?"; returns 1.
int Complain(std::string_view text);

int RunInit(const std::string& directory);
int RunImport(const ImportRequest& request);

struct FamilyArguments {
  std::string folder;
  std::string name;
  std::string title;
  std::vector<std::string> symbols;
};
int RunFamily(const std::string& directory, const FamilyArguments& arguments);

int RunList(const std::string& directory, const std::string& pattern);
int RunPrices(const std::string& directory, const std::string& symbol);
int RunRemove(const std::string& directory, const std::vector<std::string>& symbols);
int RunCheck(const std::string& directory);
int RunRebuild(const std::string& directory);
int RunDemo(const std::string& directory);

}  // namespace vistaplot
