#!/usr/bin/env bash
# Makes the pictures in docs/pictures: the hello window on every display, and every page of the gallery in both
# skins and languages, and the writer. Builds what it needs first.
set -euo pipefail
cd "$(dirname "$0")/.."
pictures=$PWD/docs/pictures
pages=(buttons labels pictures progress text_fields combos lists trees tabs toolbars layouts splitters panels scrolling animation frames
    tooltips)

hello() { # hello NAME LAUNCHER... : the light window in English and the dark one in German
    local name=$1
    shift
    "$@" --screenshot "$scratch/light.png" >/dev/null
    "$@" --skin dark --language Deutsch --screenshot "$scratch/dark.png" >/dev/null
    cp "$scratch/light.png" "$pictures/hello_${name}_light.png"
    cp "$scratch/dark.png" "$pictures/hello_${name}_dark.png"
}

gallery() { # gallery LAUNCHER...
    local page skin language
    for page in "${pages[@]}"; do
        for skin in light dark; do
            for language in English Chinese; do
                "$@" --page "$page" --skin "$skin" --language "$language" --screenshot "$scratch/page.png" >/dev/null
                # 256 colours keep the repository small and look the same.
                convert "$scratch/page.png" +dither -colors 256 "png8:$pictures/gallery_${page}_${skin}_${language}.png"
            done
        done
    done
}

./run build dev
./run build windows
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$pictures"
QVUI_DISPLAY=headless hello native_headless build/dev/bin/hello
QVUI_DISPLAY=sdl hello native_sdl xvfb-run -a build/dev/bin/hello
export WINEPREFIX=${WINEPREFIX:-$PWD/build/wine-prefix} WINEDEBUG=-all
hello windows_wine xvfb-run -a wine build/windows/bin/hello.exe
QVUI_DISPLAY=headless gallery build/dev/bin/gallery
QVUI_DISPLAY=headless build/dev/bin/writer --screenshot "$scratch/writer.png" README.md >/dev/null
convert "$scratch/writer.png" +dither -colors 256 "png8:$pictures/writer.png"
