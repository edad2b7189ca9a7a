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
        QVUI_E2E_DISPLAY=1 exec xvfb-run -a -s '-screen 0 1280x1024x24' bash "$1"
    fi
}

# start COMMAND... : runs the application in the background.
start() {
    : >"$scratch/out"
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

# client_point X Y : prints the screen coordinates of a point of the client area, whose origin the application
# printed; a window may have a frame around it.
client_point() {
    local left top
    read -r left top < <(tr -d '\r' <"$scratch/out" | sed -n 's/^client //p' | tail -1)
    [[ -n ${top:-} ]] || fail "the application printed no client origin"
    printf '%d %d' $((left + $1)) $((top + $2))
}

# press_control NAME : presses the middle of the control, whose rectangle the application printed.
press_control() {
    local left top right bottom
    read -r left top right bottom < <(tr -d '\r' <"$scratch/out" | sed -n "s/^control $1 //p" | tail -1)
    [[ -n ${bottom:-} ]] || fail "the application printed no rectangle of \"$1\""
    # shellcheck disable=SC2046
    xdotool mousemove $(client_point $(((left + right) / 2)) $(((top + bottom) / 2))) click 1
}

# colour_at X Y : prints the pixel of the client area as hexadecimal digits.
colour_at() {
    local x y
    read -r x y < <(client_point "$1" "$2")
    import -silent -window root -crop "1x1+$x+$y" -depth 8 rgb:- | od -An -tx1 | tr -d ' \n'
}

# wait_for_colour X Y COLOUR
wait_for_colour() {
    local attempt
    for ((attempt = 0; attempt < 200; ++attempt)); do
        [[ $(colour_at "$1" "$2") == "$3" ]] && return 0
        sleep 0.05
    done
    fail "the pixel at $1,$2 is $(colour_at "$1" "$2"), not $3"
}

# wait_for_other_colour X Y COLOUR
wait_for_other_colour() {
    local attempt
    for ((attempt = 0; attempt < 200; ++attempt)); do
        [[ $(colour_at "$1" "$2") != "$3" ]] && return 0
        sleep 0.05
    done
    fail "the pixel at $1,$2 stayed $3"
}

# press_keys WINDOW KEYS : gives the window the keyboard and types as a person does.
press_keys() {
    xdotool windowfocus "$1"
    xdotool key "$2"
}

# expect_exit STATUS : waits for the application's end.
expect_exit() {
    local status=0
    wait "$application" || status=$?
    application=
    [[ $status -eq $1 ]] || fail "the application ended with status $status, not $1"
}
