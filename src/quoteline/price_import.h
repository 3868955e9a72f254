// The import of price files into a service directory.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "quoteline/csv_prices.h"
#include "quoteline/store_change.h"

namespace vistaplot {

struct ImportRequest {
  std::string directory;
  std::vector<std::string> files;
  PriceFileOptions options;
  bool replace = false;  ///< known issues lose their old history
  bool dry_run = false;  ///< says what would be, stores nothing
};

struct ImportReport {
  /// Why nothing was stored, ready to be shown: "FILE:LINE: what is wrong", the first twenty bad
  /// lines of the call and how many more there are. Empty after success.
  std::vector<std::string> faults;
  std::vector<std::string> notes;    ///< what the user should know all the same
  std::vector<IssueChange> changes;  ///< one an issue, ascending by symbol
  /// By symbol: the columns that nothing was taken from, of files of one issue that had some.
  std::map<std::string, std::vector<std::string>> left_out;
};

/// All files or none, in one transaction.
ImportReport ImportPrices(const ImportRequest& request);

}  // namespace vistaplot
