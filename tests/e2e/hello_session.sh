# One session with the hello window, the same on every display: press both buttons, see both answers, close it.
# The caller has started the application.

hello_session() {
    wait_for ready
    local window before
    window=$(find_window "Hello from qvui")
    before=$(colour_at "$window" 4 4)

    press_control "$window" skin
    wait_for "click skin"
    wait_for "skin dark"
    wait_for_colour "$window" 4 4 232731
    press_control "$window" skin
    wait_for "skin light"
    wait_for_colour "$window" 4 4 "$before"

    press_control "$window" language
    wait_for "click language"
    wait_for "language Deutsch"
    find_window "Hallo von qvui" >/dev/null

    xdotool windowfocus "$window" key --window "$window" alt+F4
    wait_for closed
    expect_exit 0
}
