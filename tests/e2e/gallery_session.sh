# One session with the gallery, the same on every display: every page is opened by a press, the window is dragged
# by its caption, both switches are used, and the window is closed by its button. The caller has started the
# application.

# drag_caption STEP COUNT : drags the window to the right and downwards. Every step is waited for, and the release
# leaves the window exactly there.
drag_caption() {
    local x y left top step
    read -r x y <<<"$(client_point 400 24)"
    read -r left top <<<"$(client_point 0 0)"
    xdotool mousemove "$x" "$y" mousedown 1
    wait_for "lifted $left $top"
    for ((step = 1; step <= $2; ++step)); do
        xdotool mousemove $((x + step * $1)) $((y + step * $1 / 2))
        wait_for "client $((left + step * $1)) $((top + step * $1 / 2))"
    done
    xdotool mouseup 1
    wait_for "dropped $((left + $1 * $2)) $((top + $1 * $2 / 2))"
}

gallery_session() {
    wait_for ready
    local page before
    for page in labels pictures progress lists trees tabs toolbars layouts splitters panels scrolling animation \
        frames tooltips buttons; do
        press_control "tab_$page"
        wait_for "page tab_$page"
    done
    drag_caption 60 1
    drag_caption 10 6
    press_control tab_labels
    wait_for "page tab_labels"
    before=$(colour_at 600 730)
    press_control skin
    wait_for "skin dark"
    wait_for_other_colour 600 730 "$before"
    press_control language
    wait_for "language Chinese"
    press_control close
    wait_for closed
    expect_exit 0
}
