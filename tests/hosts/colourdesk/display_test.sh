#!/usr/bin/env bash
# Colour Desk on a display with a window manager, worked as a user works it:
# display_test.sh COLOURDESK SET_DISPLAY_PROFILE DRAG_SOURCE SAMPLES
# Patches and spots are clicked and marked, a file is dragged onto the window and a patch out of it, the window is resized below its
# minimum, moved and closed, and comes back where it was. Colours follow the profile that the display names.
# Starts a display of its own; needs Xvfb, openbox, xdotool, xclip, xprop and ImageMagick.
set -euo pipefail
colourdesk=$1
set_display_profile=$2
drag_source=$3
samples=$4
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; wait; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" XDG_RUNTIME_DIR="$work" QT_QPA_PLATFORM=xcb
fail() { echo "FAILED: $1"; exit 1; }
# Waits until a command succeeds, at most 30 seconds: a machine under load is slow, not wrong.
await() { for _ in $(seq 300); do "$@" && return 0; sleep 0.1; done; return 1; }

mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$work/number" 2>/dev/null &
read -r number <"$work/number"
export DISPLAY=":$number"
openbox >/dev/null 2>&1 &
# A window that comes before its manager may stay unmanaged.
manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
await manager_runs || fail "no window manager"

is_managed() {
  for window in $(xdotool search --onlyvisible --class colourdesk 2>/dev/null); do
    xprop -id "$window" WM_STATE 2>/dev/null | grep -q Normal && return 0
  done
  return 1
}
start() {
  "$colourdesk" >"$work/log" 2>&1 &
  program=$!
  await is_managed || fail "no window appeared: $(cat "$work/log")"
}
geometry() { eval "$(xdotool getwindowgeometry --shell "$window")"; }
has_size() { geometry && [ "$WIDTH" -eq "$1" ] && [ "$HEIGHT" -eq "$2" ]; }
is_painted() { import -window "$window" "$work/before.png" && [ "$(identify -format %k "$work/before.png")" -gt 30 ]; }
has_changed() {
  import -window "$window" "$work/after.png"
  changed=$(compare -metric AE "$work/before.png" "$work/after.png" null: 2>&1 || true)
  [ "${changed%%[.e]*}" -gt 500 ]
}
has_shrunk() { geometry && [ "$WIDTH" -lt 1280 ] && [ "$HEIGHT" -lt $((772 + bar)) ]; }
is_near() { geometry && [ $((X - $1)) -ge -30 ] && [ $((X - $1)) -le 30 ] && [ $((Y - $2)) -ge -60 ] && [ $((Y - $2)) -le 60 ]; }
has_saved() { grep -q '^ColourDesk' "$work/config/colourdesk.ini" 2>/dev/null; }
has_ended() { ! kill -0 "$program" 2>/dev/null; }
close_by_key() {
  xdotool windowactivate --sync "$window" key --clearmodifiers alt+F4 2>/dev/null || true
  await has_ended || fail "the window didn't close"
  wait "$program" || fail "the program ended with $?: $(cat "$work/log")"
}

start
# The menu bar is above the client area, whose places are counted from its own corner.
has_bar() { geometry && [ "$WIDTH" -eq 1280 ] && bar=$((HEIGHT - 772)) && [ "$bar" -gt 10 ] && [ "$bar" -lt 50 ]; }
await has_bar || fail "the window is $WIDTH by $HEIGHT"
await is_painted || fail "the window stayed empty"

# The fourth patch of the first row: the picture changes around it and in the details.
xdotool mousemove --window "$window" 559 $((531 + bar)) click 1
await has_changed || fail "a click on a patch changed $changed pixels"

# The large swatch has the colour of the patch, and the one selected before has lost its mark.
colours() { import -window "$window" "$work/now.png" && convert "$work/now.png" -format "%[pixel:p{$1}] %[pixel:p{$2}]" info:; }
shows_patch() { read -r swatch patch <<<"$(colours 80,$((570 + bar)) "$1")"; [ -n "$patch" ] && [ "$swatch" = "$patch" ]; }
await shows_patch 559,$((531 + bar)) || fail "the swatch is $swatch, the patch that was clicked $patch"
import -window "$window" "$work/selected.png"
xdotool key --window "$window" Tab key --window "$window" space
await shows_patch 610,$((531 + bar)) || fail "by key the swatch is $swatch, the patch $patch"
# What is selected is copied as a picture, a drawing and numbers, for any program.
copied() { timeout 5 xclip -selection clipboard -o -t "$1" 2>/dev/null; }
has_copied() { for type in image/png image/bmp image/svg+xml UTF8_STRING; do copied TARGETS | grep -qx "$type" || return 1; done; }
xdotool windowactivate --sync "$window" key --clearmodifiers ctrl+c
await has_copied || fail "a patch was copied as $(copied TARGETS)"
[ "$(copied image/png | identify -format %m -)" = PNG ] || fail "the copied picture can't be read"
copied UTF8_STRING | grep -q '^[0-9]*	[0-9]*	[0-9]*' || fail "the copied numbers are $(copied UTF8_STRING)"
xdotool mousemove --window "$window" 456 $((531 + bar)) click 1
await shows_patch 456,$((531 + bar)) || fail "the swatch is $swatch, the patch that was clicked $patch"
import -window "$window" "$work/moved.png"
# The patch that was selected first looks as it did before: no second ring stays.
same_as_before() {
  import -window "$window" "$work/moved.png"
  changed=$(compare -metric AE -extract 50x50+534+$((506 + bar)) "$work/before.png" "$work/moved.png" null: 2>&1 || true)
  [ "${changed%%[.e]*}" -eq 0 ]
}
await same_as_before || fail "the former selection left $changed pixels"
has_changed

# A click on a spot of the chart selects its sample: the swatch gets the spot's colour, and one spot alone has the
# black and white rings around it.
spot=1078,$((143 + bar))
xdotool mousemove --window "$window" ${spot/,/ } click 1
shows_spot() { read -r swatch mark <<<"$(colours 80,$((570 + bar)) $spot)"; [ -n "$mark" ] && [ "$swatch" = "$mark" ]; }
await shows_spot || fail "the swatch is $swatch, the spot that was clicked $mark"
rings() {
  import -window "$window" "$work/now.png"
  convert "$work/now.png" -crop 443x370+807+$((96 + bar)) +repage -fill black +opaque white \
    -define connected-components:verbose=true -define connected-components:area-threshold=8 \
    -connected-components 8 null: | grep -c 'gray(255)\|white\|(255,255,255)'
}
has_one_ring() { count=$(rings); [ "$count" -eq 1 ]; }
await has_one_ring || fail "there are $count rings in the chart"

# F8 takes the next language and keeps it.
mv "$work/after.png" "$work/before.png"
xdotool key --window "$window" F8
await has_changed || fail "another language changed $changed pixels"
keeps_language() { grep -q '^Language=French' "$work/config/colourdesk.ini" 2>/dev/null; }
await keeps_language || fail "the language wasn't kept"

# By letters through the menu, in the language that is shown: Affichage, Langue, Langue suivante.
is_german() { grep -q '^Language=German' "$work/config/colourdesk.ini" 2>/dev/null; }
xdotool windowactivate --sync "$window" key --clearmodifiers alt+a
for letter in l s; do sleep 0.3; xdotool key "$letter"; done
await is_german || fail "the menu didn't change the language"

# A file that can't be read says so in a box, once, and the window stays as it was.
others() { xdotool search --onlyvisible --class colourdesk | grep -v "^$window\$" || true; }
has_box() { [ "$(others | wc -l)" -eq 1 ]; }
has_no_box() { [ -z "$(others)" ]; }
drop() {
  "$drag_source" "$1" 2>/dev/null &
  source=$!
  await xdotool search --onlyvisible --name drag_source >/dev/null || fail "no window to drag from"
  eval "$(xdotool getwindowgeometry --shell "$(xdotool search --onlyvisible --name drag_source)" | sed 's/^/SOURCE_/')"
  geometry
  xdotool mousemove $((SOURCE_X + 50)) $((SOURCE_Y + 50)) mousedown 1
  for step in 1 2 3 4 5 6 7 8; do
    xdotool mousemove $((SOURCE_X + 50 + (X + 300 - SOURCE_X - 50) * step / 8)) \
      $((SOURCE_Y + 50 + (Y + 100 - SOURCE_Y - 50) * step / 8))
    sleep 0.05
  done
  sleep 0.2
  xdotool mouseup 1
}
echo "no samples" >"$work/bad.txt"
drop "$work/bad.txt"
await has_box || fail "a file that can't be read was dropped, and no box came"
kill "$source"
# The box may be gone before the key is released.
xdotool key --window "$(others)" Return 2>/dev/null || true
await has_no_box || fail "the box didn't close"

# A good one takes the place of what was shown.
former=$window
drop "$samples"
is_replaced() { is_managed && [ "$window" != "$former" ]; }
await is_replaced || fail "a dropped file wasn't opened"
kill "$source"
await is_painted || fail "the window of the dropped file stayed empty"

# A patch is dragged to another program, which gets its name, its numbers and its colour.
"$drag_source" "$samples" >"$work/dropped" 2>/dev/null &
source=$!
await xdotool search --onlyvisible --name drag_source >/dev/null || fail "no window to drag to"
eval "$(xdotool getwindowgeometry --shell "$(xdotool search --onlyvisible --name drag_source)" | sed 's/^/SOURCE_/')"
xdotool mousemove --window "$window" 559 $((531 + bar)) mousedown 1
eval "$(xdotool getmouselocation --shell | sed 's/^/FROM_/')"
for step in 1 2 3 4 5 6 7 8; do
  # The press has raised the window, which may cover the other one's middle.
  xdotool mousemove $((FROM_X + (SOURCE_X + 180 - FROM_X) * step / 8)) $((FROM_Y + (SOURCE_Y + 20 - FROM_Y) * step / 8))
  sleep 0.05
done
sleep 0.2
xdotool mouseup 1
was_dropped() { grep -q '^text=.*L\* .*color=#[0-9a-f]' "$work/dropped"; }
await was_dropped || fail "a patch was dragged out, and there came: $(cat "$work/dropped")"
kill "$source"

xdotool windowsize "$window" 50 50
await has_shrunk || fail "the window can't be made smaller"
[ "$WIDTH" -ge 600 ] && [ "$HEIGHT" -ge 300 ] || fail "the window shrank to $WIDTH by $HEIGHT"

xdotool windowmove "$window" 90 70
await is_near 90 70 || fail "the window is at $X,$Y"
await has_saved || fail "no place was saved"
x=$X y=$Y
close_by_key

patch_colour() { import -window "$window" "$work/now.png" && convert "$work/now.png" -format "%[pixel:p{80,$((570 + bar))}]" info:; }
start
await is_painted || fail "the window stayed empty"
plain=$(patch_colour)
await is_near "$x" "$y" || fail "the window was at $x,$y and came back at $X,$Y"
close_by_key
[ ! -s "$work/log" ] || fail "it said: $(cat "$work/log")"

"$set_display_profile" wide
start
await is_painted || fail "the window stayed empty"
[ "$(patch_colour)" != "$plain" ] || fail "the patch is $plain with and without a profile"
close_by_key
[ ! -s "$work/log" ] || fail "it said: $(cat "$work/log")"

"$set_display_profile" broken
start
await is_painted || fail "the window stayed empty"
[ "$(patch_colour)" = "$plain" ] || fail "with a broken profile the patch is $(patch_colour), not $plain"
close_by_key
grep -q "sRGB is used instead" "$work/log" || fail "a broken profile was passed over in silence"
echo "1 passed, 0 failed"
