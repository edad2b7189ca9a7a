#!/usr/bin/env bash
# A broken skin package ends the windows application with a message that names the file.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/hello_failures.sh"
on_own_display "$0"

bin=$root/build/windows/bin program=hello.exe launch=(wine)
hello_failures
