#!/usr/bin/env bash
# Draws both skins' images: every SVG template with every palette filled in. Needs rsvg-convert (librsvg2-bin).
# The PNG files it makes are kept in the repository.
set -euo pipefail
cd "$(dirname "$0")"

for palette in *.palette; do
    skin=${palette%.palette}
    mkdir -p "../skins/$skin"
    script=$(sed -n 's/^\([A-Z_]*\)=\(.*\)$/s,@\1@,\2,g/p' "$palette")
    for template in *.svg; do
        sed "$script" "$template" | rsvg-convert -o "../skins/$skin/${template%.svg}.png"
    done
    # The icons of list items, with the space around them that a row of 30 pixels has.
    for icon in mail star user file folder gear globe search; do
        sed "$script" "icon_$icon.svg" |
            rsvg-convert --page-width 30 --page-height 30 --left 5 --top 5 -o "../skins/$skin/list_$icon.png"
    done
done
