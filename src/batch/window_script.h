// A script in the visible program: the lines and commands of batch runs, over windows that follow.
#pragma once

#include <memory>
#include <string>

#include "app/script_player.h"
#include "base/result.h"
#include "batch/batch.h"

namespace vistaplot {

/// Reads the host file `path` and plays it once; errors and the script's output go to `streams`, of
/// which `in` is not used. Fails on a file that cannot be read.
Result<std::unique_ptr<ScriptPlayer>> MakeWindowScript(const std::string& path,
                                                       ChartExporter exporter,
                                                       const BatchStreams& streams);

}  // namespace vistaplot
