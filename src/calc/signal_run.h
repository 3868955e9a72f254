// A run of the signal summary over all cases: from the test's data to sheets and files.
#pragma once

#include <optional>

#include "base/dialogs.h"
#include "base/result.h"
#include "calc/signal_data.h"
#include "calc/signal_files.h"
#include "table/data_table.h"

namespace vistaplot {

/// Where a run's results go; all outlive the run.
struct SignalTargets {
  DataTable& table;
  SignalFiles& files;
  bool wants_detail = false;  ///< the detail sheet is written
};

/// How a run ended.
struct SignalOutcome {
  int finished = 0;  ///< cases whose results are in sheets and files
  int cases = 0;
  std::optional<RuntimeError> error;  ///< what stopped it, if anything did
};

/// Runs all cases of a test that RefuseTest lets pass. Each case's row goes into the summary sheet
/// (row number + 2), whose tips say what its columns mean; its trades into the detail sheet with
/// one empty row ahead of those of every case but the first; its file records as the files want
/// them; the gains of the last case into column 5 of the funds sheet. The sheets are complete for
/// the finished cases however the run ends. `progress` is asked after each case whether to stop.
SignalOutcome RunSignalTest(const SignalData& data,
                            const SignalTest& test,
                            const SignalTargets& targets,
                            Progress& progress);

}  // namespace vistaplot
