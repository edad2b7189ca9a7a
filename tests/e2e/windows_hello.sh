#!/usr/bin/env bash
# The hello window of the windows target, with the same presses.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/hello_session.sh"
on_own_display "$0"

start wine "$root/build/windows/bin/hello.exe"
hello_session
