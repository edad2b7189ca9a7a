# One session with the gallery, the same on every display: every page is opened by a press, both switches are
# used, and the window is dragged by its caption and closed by its button. The caller has started the application.

gallery_session() {
    wait_for ready
    local page before
    for page in labels pictures progress lists trees tabs toolbars layouts splitters panels scrolling animation \
        frames tooltips buttons; do
        press_control "tab_$page"
        wait_for "page tab_$page"
    done
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
