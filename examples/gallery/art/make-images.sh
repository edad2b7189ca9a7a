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
done
