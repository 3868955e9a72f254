#!/usr/bin/env bash
# build.sh PRESET [TARGET...]: set-up, then configures and builds a preset into build/PRESET.
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1
shift

scripts/setup.sh
if command -v ccache >/dev/null; then
  # Another clone of the same sources finds what this one compiled.
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
fi
log=build/$preset/configure.log
mkdir -p "build/$preset"
echo "configuring build/$preset"
cmake --preset "$preset" >"$log" 2>&1 || {
  cat "$log" >&2
  exit 1
}
echo "building build/$preset"
cmake --build --preset "$preset" ${1:+--target "$@"}
