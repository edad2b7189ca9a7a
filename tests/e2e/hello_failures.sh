# What the hello application says when its skin package is broken; the same on both targets. The caller sets
# `bin` (the build's programs), `program` and the launcher `launch`.

# with_package : a fresh copy of the program and its skin, to break.
with_package() {
    rm -rf "$scratch/app"
    mkdir -p "$scratch/app"
    cp -r "$bin/hello-skin" "$bin/$program" "$bin"/*qvui.* "$scratch/app/"
}

run_hello() {
    local status=0
    timeout 60 ${launch[@]+"${launch[@]}"} "$scratch/app/$program" --screenshot "$scratch/picture.png" \
        >"$scratch/out" 2>"$scratch/err" </dev/null || status=$?
    return $status
}

# expect_refusal WHAT PATTERN : the application ends with status 1 and says why on standard error.
expect_refusal() {
    local status=0
    run_hello || status=$?
    [[ $status -eq 1 ]] || fail "$1: status $status, not 1"
    tr -d '\r' <"$scratch/err" | grep -q -- "$2" || fail "$1: nothing like \"$2\" on standard error"
}

hello_failures() {
    with_package
    rm "$scratch/app/hello-skin/entry.xml"
    expect_refusal "no entry document" 'entry.xml'
    expect_refusal "no entry document" 'missing'

    with_package
    sed -i 's,</skin_set>,,' "$scratch/app/hello-skin/entry.xml"
    expect_refusal "an entry document that is not well formed" 'entry.xml'
    expect_refusal "an entry document that is not well formed" 'not well formed: <unended_start_tag tagname="skin_set"'

    with_package
    sed -i '/<language /d' "$scratch/app/hello-skin/entry.xml"
    expect_refusal "an entry document that names no language" 'Load Language failed'

    with_package
    rm "$scratch/app/hello-skin/light/resources.xml"
    expect_refusal "a skin whose document is missing" 'light.resources.xml'

    with_package
    head -c 100 "$bin/hello-skin/light/logo.png" >"$scratch/app/hello-skin/light/logo.png"
    run_hello || fail "a broken picture kept the window from showing"
    [[ -s $scratch/picture.png ]] || fail "no picture was written"
}
