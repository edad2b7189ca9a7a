# One session with the window probe, the same on every display: everything that a person can do to a window arrives,
# and everything that the program does to it shows. The caller has started the probe.

# expect_next LINE... : the lines that the probe prints next, in this order; what it printed before is passed over.
seen=0
expect_next() {
    local line attempt found
    for line in "$@"; do
        for ((attempt = 0; attempt < 200; ++attempt)); do
            found=$(tr -d '\r' <"$scratch/out" | tail -n +$((seen + 1)) | grep -nx -m 1 -- "$line" | cut -d: -f1) || true
            [[ -z $found ]] || break
            sleep 0.05
        done
        [[ -n $found ]] || fail "\"$line\" did not follow line $seen"
        seen=$((seen + found))
    done
}

# type_keys KEY... : presses keys, one after the other.
type_keys() {
    xdotool key --delay 20 "$@"
}

# screen_colour X Y : prints the pixel of the screen as hexadecimal digits.
screen_colour() {
    import -silent -window root -crop "1x1+$1+$2" -depth 8 rgb:- | od -An -tx1 | tr -d ' \n'
}

# expect_colour X Y COLOUR
expect_colour() {
    local attempt
    for ((attempt = 0; attempt < 100; ++attempt)); do
        [[ $(screen_colour "$1" "$2") == "$3" ]] && return 0
        sleep 0.05
    done
    fail "the screen at $1,$2 is $(screen_colour "$1" "$2"), not $3"
}

pointer_session() {
    xdotool mousemove 150 150
    expect_next "move 50 50"
    xdotool mousemove 160 155 click 1
    expect_next "move 60 55" "press 60 55" "release 60 55"
    xdotool click 1
    expect_next "double 60 55"
    xdotool click 3
    expect_next "press right 60 55"
    xdotool click 4 click 5
    expect_next "wheel 120" "wheel -120"
    xdotool mousedown 1
    expect_next "press 60 55"
    xdotool mousemove 20 30
    expect_next "move -80 -70"
    xdotool mouseup 1
    expect_next "release -80 -70"
    wait_for leave
}

keyboard_session() {
    xdotool mousemove 150 150
    type_keys Tab Escape F4 Left
    expect_next "key 09" "char 09" "key 1B" "char 1B" "key 73" "key 25"
    type_keys a A
    expect_next "char 61" "char 41"
    type_keys alt+x
    expect_next "syskey 58" "syschar 78"
    type_keys ctrl+b
    expect_next "key 42" "char 02"
}

# The popup shows above its owner; the keyboard stays where it was.
popup_session() {
    type_keys t
    expect_next "tip shown"
    expect_colour 150 170 fafaa0
    type_keys Tab
    expect_next "key 09"
    xdotool mousemove 110 110 click 1
    expect_next "press 10 10"
    expect_colour 150 170 fafaa0
    type_keys t
    expect_next "tip hidden"
    expect_colour 150 170 c82828
}

shape_session() {
    expect_colour 102 102 c82828
    type_keys r
    expect_next round
    expect_colour 102 102 000000
    expect_colour 250 200 c82828
    type_keys q
    expect_next square
    expect_colour 102 102 c82828
}

# window_session [NATIVE STEPS] : the whole session, with a function's steps before the window closes.
window_session() {
    expect_next ready
    find_window "window probe" >/dev/null
    xdotool windowfocus "$(find_window "window probe")"
    expect_colour 250 200 c82828
    pointer_session
    keyboard_session
    popup_session
    shape_session
    type_keys n
    expect_next renamed
    local window
    window=$(find_window "probe renamed")
    type_keys m
    expect_next "place 200 150" "size 320 240" moved
    expect_colour 500 380 c82828
    expect_colour 102 102 000000
    [[ $# -eq 0 ]] || "$1" "$window"
    type_keys alt+F4
    expect_next close
    expect_exit 0
}
