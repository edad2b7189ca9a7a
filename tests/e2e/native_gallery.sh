#!/usr/bin/env bash
# The gallery of the native target, clicked through as a person would.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/gallery_session.sh"
on_own_display "$0"

QVUI_DISPLAY=sdl start "$root/build/release/bin/gallery"
gallery_session
