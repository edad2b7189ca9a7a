#!/usr/bin/env bash
# The application in the README on a real X server: its button switches the skin, and it ends when it is closed.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
on_own_display "$0"

QVUI_DISPLAY=sdl start "$root/build/release/bin/readme_application"
window=$(find_window Mine)
eval "$(xdotool getwindowgeometry --shell "$window")"
printf 'client %d %d\ncontrol skin %d %d %d %d\n' "$X" "$Y" $((WIDTH - 178)) $((HEIGHT - 62)) $((WIDTH - 28)) \
    $((HEIGHT - 24)) >"$scratch/out"  # it prints nothing itself
wait_for_other_colour 4 4 000000
press_control skin
wait_for_colour 4 4 222630
press_keys "$window" alt+F4
expect_exit 0
