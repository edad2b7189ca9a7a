#!/usr/bin/env bash
# The writer on a real X server: a UTF-16 file is edited and saved with its encoding and line ends, an RTF file with
# its formats, and closing asks before changes are lost.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
on_own_display "$0"

plain=$scratch/plain.txt rich=$scratch/rich.rtf
utf16() { printf '\xFF\xFE' && printf "$1" | iconv -f UTF-8 -t UTF-16LE; }
utf16 'one\r\ntwo\r\n' >"$plain"
printf '{\\rtf1\\ansi {\\b bold} plain}' >"$rich"

QVUI_DISPLAY=sdl start "$root/build/release/bin/writer" "$rich" "$plain"
wait_for ready
window=$(find_window "plain.txt - Writer")
press_keys "$window" ctrl+End
xdotool type three
xdotool key ctrl+s
wait_for "saved $plain"
utf16 'one\r\ntwo\r\nthree' | cmp - "$plain" || fail "the text file was not saved byte for byte"

xdotool key ctrl+w
window=$(find_window "rich.rtf - Writer")
press_keys "$window" ctrl+Home
xdotool type new
xdotool key ctrl+s
wait_for "saved $rich"
grep -q '\\b\\.* newbold\\b0  plain' "$rich" || fail "the RTF file lost its text or its format: $(cat "$rich")"

xdotool type x
xdotool key ctrl+w
wait_for "asked save"
xdotool key Escape alt+F4
wait_for "asked save"
xdotool key Escape ctrl+s
find_window "rich.rtf - Writer" >/dev/null
press_keys "$window" alt+F4
wait_for closed
expect_exit 0
