#!/usr/bin/env bash
# A broken skin package ends the native application with a message that names the file.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/hello_failures.sh"

bin=$root/build/release/bin program=hello launch=(env QVUI_DISPLAY=headless)
hello_failures
