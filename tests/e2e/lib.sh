# Functions for the end-to-end scripts: an application runs on a display of its own and is driven from outside.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
application=

finish() {
    [[ -z $application ]] || kill "$application" 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

fail() {
    printf 'FAILED: %s\n' "$*"
    [[ ! -e $scratch/out ]] || sed 's/^/  out: /' "$scratch/out"
    [[ ! -e $scratch/err ]] || sed 's/^/  err: /' "$scratch/err"
    exit 1
}

# on_own_display SCRIPT : runs the script again under a virtual X server, once.
on_own_display() {
    if [[ -z ${QVUI_E2E_DISPLAY:-} ]]; then
        unset WAYLAND_DISPLAY
        rm -rf "$scratch"
        QVUI_E2E_DISPLAY=1 exec xvfb-run -a -s '-screen 0 1024x768x24' bash "$1"
    fi
}

# start COMMAND... : runs the application in the background.
start() {
    "$@" >"$scratch/out" 2>"$scratch/err" </dev/null &
    application=$!
}

# wait_for LINE : waits until the application has printed the line, which may be a pattern.
wait_for() {
    local attempt
    for ((attempt = 0; attempt < 400; ++attempt)); do
        tr -d '\r' <"$scratch/out" | grep -qx -- "$1" && return 0
        kill -0 "$application" 2>/dev/null || fail "the application ended before it printed \"$1\""
        sleep 0.05
    done
    fail "the application never printed \"$1\""
}

# find_window TITLE : prints the window's id.
find_window() {
    local attempt id
    for ((attempt = 0; attempt < 200; ++attempt)); do
        id=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -1) || true
        [[ -z $id ]] || { printf '%s' "$id"; return 0; }
        sleep 0.05
    done
    fail "no window \"$1\" on the display"
}

# press_control WINDOW NAME : presses the middle of the control, whose rectangle the application printed.
press_control() {
    local left top right bottom
    read -r left top right bottom < <(tr -d '\r' <"$scratch/out" | sed -n "s/^control $2 //p" | tail -1)
    [[ -n ${bottom:-} ]] || fail "the application printed no rectangle of \"$2\""
    xdotool mousemove --window "$1" $(((left + right) / 2)) $(((top + bottom) / 2)) click 1
}

# colour_at WINDOW X Y : prints the pixel as hexadecimal digits.
colour_at() {
    import -silent -window "$1" -crop "1x1+$2+$3" -depth 8 rgb:- | od -An -tx1 | tr -d ' \n'
}

# wait_for_colour WINDOW X Y COLOUR
wait_for_colour() {
    local attempt
    for ((attempt = 0; attempt < 200; ++attempt)); do
        [[ $(colour_at "$1" "$2" "$3") == "$4" ]] && return 0
        sleep 0.05
    done
    fail "the pixel at $2,$3 is $(colour_at "$1" "$2" "$3"), not $4"
}

# expect_exit STATUS : waits for the application's end.
expect_exit() {
    local status=0
    wait "$application" || status=$?
    application=
    [[ $status -eq $1 ]] || fail "the application ended with status $status, not $1"
}
