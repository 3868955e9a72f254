#!/usr/bin/env bash
# on_display.sh COMMAND...: runs a command on a virtual display of its own, under a window manager.
# The display and the manager end with the command; the exit status is the command's.
set -uo pipefail
folder=$(mktemp -d)
pids=()
finish() {
  [ ${#pids[@]} -eq 0 ] || kill "${pids[@]}" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

# The server picks a free display and writes its number once it answers.
mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 1280x960x24 -nolisten tcp 3>"$folder/number" 2>"$folder/server.log" &
pids+=($!)
read -r -t 30 number <"$folder/number" || {
  echo "on_display: the virtual display did not start" >&2
  cat "$folder/server.log" >&2
  exit 1
}
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

# The manager calls the startup command when it manages windows.
mkfifo "$folder/ready"
export XDG_CONFIG_HOME=$folder XDG_CACHE_HOME=$folder XDG_RUNTIME_DIR=$folder
openbox --startup "sh -c 'echo ready >$folder/ready'" >"$folder/manager.log" 2>&1 &
pids+=($!)
read -r -t 30 _ <"$folder/ready" || {
  echo "on_display: the window manager did not start" >&2
  cat "$folder/manager.log" >&2
  exit 1
}

# The message bus that the toolkit asks for accessibility keeps a buffer to the end; only leaks of
# the program's own count.
echo 'leak:libdbus-1' >"$folder/suppressions"
export LSAN_OPTIONS=suppressions=$folder/suppressions:print_suppressions=0

"$@" &
pids+=($!)
wait $!
