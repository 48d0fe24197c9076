#!/usr/bin/env bash
# Colour Desk as a screen reader meets it, on a display and a session bus of its own: screen_reader_test.sh COLOURDESK
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work" QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$work/number" 2>/dev/null &
read -r number <"$work/number"
export DISPLAY=":$number" COLOURDESK=$1 HERE=$here
openbox >/dev/null 2>&1 &
for _ in $(seq 100); do xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" && break; sleep 0.1; done
# The program ends with the session.
dbus-run-session -- bash -c '
  /usr/libexec/at-spi-bus-launcher --launch-immediately &
  ask="dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress"
  for _ in $(seq 100); do $ask >/dev/null 2>&1 && break; sleep 0.1; done
  "$COLOURDESK" --language English &
  program=$!
  status=0
  timeout 90 /usr/bin/python3 "$HERE/screen_reader_test.py" || status=$?
  kill "$program" $(jobs -p) 2>/dev/null
  exit "$status"' 2>"$work/log" || { cat "$work/log"; exit 1; }
