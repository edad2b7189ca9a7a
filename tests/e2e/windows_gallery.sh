#!/usr/bin/env bash
# The gallery of the windows target, clicked through as a person would.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/gallery_session.sh"
on_own_display "$0"

start wine "$root/build/windows/bin/gallery.exe"
gallery_session
