#!/usr/bin/env bash
# on_spoken_bus.sh COMMAND...: runs a command where assistive tools would listen, on message buses of
# its own. Status 77 where those are not installed; else the command's.
set -uo pipefail
launcher=/usr/libexec/at-spi-bus-launcher
if [ ! -x "$launcher" ] || ! command -v dbus-run-session >/dev/null; then
  echo "on_spoken_bus: at-spi2-core or dbus is not installed" >&2
  exit 77
fi
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 AT_SPI_LAUNCHER=$launcher
exec dbus-run-session -- bash -c '"$AT_SPI_LAUNCHER" --launch-immediately & exec "$@"' bash "$@"
