#!/usr/bin/env bash
# The same window on the windows target, which shows what the platform itself does.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/window_session.sh"
on_own_display "$0"

start wine "$root/build/windows/bin/window_probe.exe"
window_session
