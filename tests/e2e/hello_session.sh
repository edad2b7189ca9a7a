# One session with the hello window, the same on every display: press both buttons, see both answers, close it.
# The caller has started the application.

hello_session() {
    wait_for ready
    local window before
    window=$(find_window "Hello from qvui")
    before=$(colour_at 4 4)

    press_control skin
    wait_for "click skin"
    wait_for "skin dark"
    wait_for_colour 4 4 222630
    press_control skin
    wait_for "skin light"
    wait_for_colour 4 4 "$before"

    press_control language
    wait_for "click language"
    wait_for "language Deutsch"
    find_window "Hallo von qvui" >/dev/null

    press_keys "$window" alt+F4
    wait_for closed
    expect_exit 0
}
