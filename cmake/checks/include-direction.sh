#!/usr/bin/env bash
# Rooms include one way: foundation → render → skin → tooltip → framework → controls → layout → bars; platform
# knows none of them, and the target is asked about only inside platform/.
set -euo pipefail
rooms=(foundation render skin tooltip framework controls layout bars)
status=0

complain() {
    [[ -n $1 ]] || return 0
    printf '%s\n%s\n' "$2" "$1"
    status=1
}

above=""
for ((i = ${#rooms[@]} - 1; i >= 0; --i)); do
    room=${rooms[i]}
    if [[ -n $above ]]; then
        complain "$(grep -rnE "#include [<\"](qvui/)?($above)/" include/qvui/"$room" src/"$room" || true)" \
            "$room includes a room above it:"
    fi
    above=${above:+$above|}$room
done
complain "$(grep -rnE "#include [<\"](qvui/)?($above)/" platform || true)" "platform includes a room of the library:"
complain "$(grep -rnE '^[[:space:]]*#[[:space:]]*(if|ifdef|ifndef|elif).*(_WIN32|__linux__|__unix__|WIN64|__MINGW)' \
    include src examples tools tests || true)" "the target is asked about outside platform/:"
exit $status
