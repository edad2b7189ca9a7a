#!/usr/bin/env bash
# Draws the two skins' images from one set of SVG templates: each palette fills in the colours.
# Needs rsvg-convert (librsvg2-bin). The PNG files it makes are kept in the repository.
set -euo pipefail
cd "$(dirname "$0")"

declare -A light=(
    [CARD]=#FFFFFF [CARD_EDGE]=#E3E7F0 [SHADOW]=0.16
    [NORMAL]=#FFFFFF [NORMAL_EDGE]=#C8CFDD [HOT]=#F1F5FF [HOT_EDGE]=#7F9DFA
    [PUSHED]=#DDE7FF [PUSHED_EDGE]=#4C75F2 [OFF]=#F2F3F6 [OFF_EDGE]=#E2E5EB
    [MAIN]=#4C75F2 [MAIN_EDGE]=#3D63DA [MAIN_HOT]=#5F86FF [MAIN_PUSHED]=#3A5FD6 [MAIN_OFF]=#B9C6EE
    [LOGO_FROM]=#6E8EFB [LOGO_TO]=#A777E3)
declare -A dark=(
    [CARD]=#2B303B [CARD_EDGE]=#3A4150 [SHADOW]=0.45
    [NORMAL]=#353B48 [NORMAL_EDGE]=#4A5263 [HOT]=#3F4657 [HOT_EDGE]=#6A84D8
    [PUSHED]=#2A3040 [PUSHED_EDGE]=#4C75F2 [OFF]=#2C313B [OFF_EDGE]=#373D49
    [MAIN]=#4467D8 [MAIN_EDGE]=#5B7EEA [MAIN_HOT]=#5577EA [MAIN_PUSHED]=#3655B8 [MAIN_OFF]=#39456B
    [LOGO_FROM]=#3FA9F5 [LOGO_TO]=#6F4FE8)

for palette in light dark; do
    declare -n colours=$palette
    for template in *.svg; do
        text=$(<"$template")
        for key in "${!colours[@]}"; do
            text=${text//@$key@/${colours[$key]}}
        done
        printf '%s' "$text" | rsvg-convert -o "../skin/$palette/${template%.svg}.png"
    done
done
