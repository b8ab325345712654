#!/bin/sh
# Runs a command on a virtual display of its own, so that a test's mouse, keyboard and focus are its alone.
# ZELVO_ON_SCREEN=1 lets the command use the display at hand, to watch a test.
set -u
if [ "${ZELVO_ON_SCREEN:-0}" = 1 ]; then
  exec "$@"
fi

scratch=$(mktemp -d)
server=
cleanup() {
  [ -n "$server" ] && kill "$server" 2>/dev/null && wait "$server" 2>/dev/null
  rm -rf "$scratch"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# The server takes a free display number itself and tells it: tests in parallel cannot meet.
mkfifo "$scratch/number"
Xvfb -displayfd 3 -screen 0 1920x1200x24 -dpi 96 -nolisten tcp -noreset \
  3>"$scratch/number" >"$scratch/log" 2>&1 &
server=$!
read -r number <"$scratch/number" || number=
if [ -z "$number" ]; then
  echo "with-display.sh: no virtual display:" >&2
  cat "$scratch/log" >&2
  exit 127
fi

DISPLAY=":$number" QT_QPA_PLATFORM=xcb "$@"
