#!/usr/bin/env bash
# Draws the skin's images from the gallery's templates and palette and from those here. Needs rsvg-convert
# (librsvg2-bin). The PNG files it makes are kept in the repository.
set -euo pipefail
cd "$(dirname "$0")"
gallery=../../gallery/art
script=$(sed -n 's/^\([A-Z_]*\)=\(.*\)$/s,@\1@,\2,g/p' "$gallery/light.palette")
for name in button button_flat button_main check_off check_on combo_arrow field icon_bold icon_file icon_folder \
    icon_globe icon_italic icon_plus icon_save icon_search icon_underline scroll_h_thumb scroll_h_track \
    scroll_v_thumb scroll_v_track separator_v tab_top; do
    sed "$script" "$gallery/$name.svg" | rsvg-convert -o "../skins/light/$name.png"
done
icon() { # icon NAME DRAWING
    sed "$script" <<SVG | rsvg-convert -o "../skins/light/icon_$1.png"
<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20"><g fill="none" stroke="@ICON@" stroke-width="1.6"
 stroke-linecap="round" stroke-linejoin="round">$2</g></svg>
SVG
}
icon undo '<path d="M7 4 L3.5 7.5 L7 11 M3.5 7.5 h8 a4.5 4.5 0 0 1 0 9 h-4"/>'
icon redo '<path d="M13 4 L16.5 7.5 L13 11 M16.5 7.5 h-8 a4.5 4.5 0 0 0 0 9 h4"/>'
icon left '<path d="M3 4.5 h14 M3 8.5 h8 M3 12.5 h14 M3 16.5 h8"/>'
icon centre '<path d="M3 4.5 h14 M6 8.5 h8 M3 12.5 h14 M6 16.5 h8"/>'
icon right '<path d="M3 4.5 h14 M9 8.5 h8 M3 12.5 h14 M9 16.5 h8"/>'
icon close '<path d="M5.5 5.5 L14.5 14.5 M14.5 5.5 L5.5 14.5"/>'
icon up '<path d="M5 12 L10 7 L15 12"/>'
icon down '<path d="M5 8 L10 13 L15 8"/>'
for colour in black=#1F2533 blue=#3A5FD6 red=#C93B40 green=#218754; do
    icon "${colour%%=*}" "<circle cx=\"10\" cy=\"10\" r=\"5.5\" fill=\"${colour#*=}\" stroke=\"none\"/>"
done
