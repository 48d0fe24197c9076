#!/usr/bin/env bash
# Colour Desk on a display with a window manager, worked as a user works it: display_test.sh COLOURDESK
# A patch is clicked and marked, the window is resized below its minimum, moved and closed, and comes back
# where it was. Needs xvfb-run, openbox, xdotool and xprop.
set -euo pipefail
colourdesk=$1
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work" QT_QPA_PLATFORM=xcb
fail() { echo "FAILED: $1"; exit 1; }

openbox >/dev/null 2>&1 &
sleep 1 # a window that comes before its manager may stay unmanaged
start() {
  "$colourdesk" >"$work/log" 2>&1 &
  program=$!
  for _ in $(seq 300); do
    window=$(xdotool search --onlyvisible --class colourdesk 2>/dev/null | head -n 1) && [ -n "$window" ] && break
    sleep 0.1
  done
  [ -n "${window:-}" ] || fail "no window appeared: $(cat "$work/log")"
  sleep 0.5
}
# The window may be gone before the key is up again.
close_by_key() { xdotool key --window "$window" alt+F4 2>/dev/null || true; }
geometry() { eval "$(xdotool getwindowgeometry --shell "$window")"; }

start
geometry
[ "$WIDTH" = 1120 ] && [ "$HEIGHT" = 760 ] || fail "the window is $WIDTH by $HEIGHT"

# The fourth patch of the first row: the picture changes around it and in the details.
import -window "$window" "$work/before.png"
xdotool mousemove --window "$window" 228 675 click 1
sleep 0.5
import -window "$window" "$work/after.png"
changed=$(compare -metric AE "$work/before.png" "$work/after.png" null: 2>&1 || true)
[ "${changed%%.*}" -gt 500 ] || fail "a click on a patch changed $changed pixels"

# F8 takes the next language.
xdotool key --window "$window" F8
sleep 0.5
import -window "$window" "$work/before.png"
changed=$(compare -metric AE "$work/before.png" "$work/after.png" null: 2>&1 || true)
[ "${changed%%.*}" -gt 500 ] || fail "another language changed $changed pixels"
grep -q '^Language=French' "$work/config/colourdesk.ini" || fail "the language wasn't kept"

xdotool windowsize "$window" 50 50
sleep 0.5
geometry
[ "$WIDTH" -ge 600 ] && [ "$HEIGHT" -ge 300 ] || fail "the window shrank to $WIDTH by $HEIGHT"

xdotool windowmove "$window" 90 70
sleep 1
geometry
x=$X y=$Y
close_by_key
for _ in $(seq 50); do kill -0 $program 2>/dev/null || break; sleep 0.1; done
kill -0 $program 2>/dev/null && fail "the window didn't close"
wait $program || fail "the program ended with $?: $(cat "$work/log")"
grep -q '^ColourDesk' "$work/config/colourdesk.ini" || fail "no place was saved"

start
geometry
[ $((X - x)) -ge -30 ] && [ $((X - x)) -le 30 ] && [ $((Y - y)) -ge -40 ] && [ $((Y - y)) -le 40 ] ||
  fail "the window was at $x,$y and came back at $X,$Y"
close_by_key
wait $program || fail "the program ended with $?: $(cat "$work/log")"
[ ! -s "$work/log" ] || fail "it said: $(cat "$work/log")"
echo "1 passed, 0 failed"
