// A script in the visible program: the lines and commands of batch runs, over windows that follow.
#pragma once

#include <memory>
#include <string>

#include "app/script_player.h"
#include "batch/batch.h"

namespace vistaplot {

/// Plays the host file `path` once; errors and the script's output go to `streams`, of which `in`
/// is not used. A file that cannot be read is told when the script should play.
std::unique_ptr<ScriptPlayer> MakeWindowScript(std::string path,
                                               ChartExporter exporter,
                                               const BatchStreams& streams);

}  // namespace vistaplot
