#!/usr/bin/env bash
# The hello window on a real X server: what a person does with a mouse arrives as notifications and pixels.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/hello_session.sh"
on_own_display "$0"

QVUI_DISPLAY=sdl start "$root/build/release/bin/hello"
hello_session
