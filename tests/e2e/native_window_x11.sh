#!/usr/bin/env bash
# A window of the platform layer on a real X server, driven by pointer and keyboard.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/window_session.sh"
on_own_display "$0"

# What the X server itself can do to a window, and pixels with alpha, whose clear ones show the window below.
x11_steps() {
    type_keys l
    expect_next "layer shown"
    expect_colour 410 180 008000
    expect_colour 430 200 c82828
    xdotool windowsize "$1" 400 260
    expect_next "size 400 260"
    expect_colour 590 400 c82828
    xdotool windowmove "$1" 50 60
    expect_next "place 50 60"
}

QVUI_DISPLAY=sdl start "$root/build/dev/bin/window_probe"
window_session x11_steps

QVUI_DISPLAY=sdl start "$root/build/dev/bin/window_probe" --decorated
seen=0
expect_next ready
"$root/build/dev/bin/close_request" "$(find_window "window probe")"
expect_next close
expect_exit 0
