#!/usr/bin/env bash
# Makes the seeds of the targets whose input is binary, from the pictures and resource scripts of the tests.
set -euo pipefail
cd "$(dirname "$0")/corpus"
pictures=../../../tests/platform/classlib/data
resources=$PWD/../../tests/platform/kernel/data
mkdir -p image cursor resource_module

# Pictures: one for each way through a decoder.
(cd image && for name in rgba8.png rgba16.png rgba8-interlaced.png grey8-key.png palette4.png palette8-alpha.png \
    rgb.gif transparent.gif interlaced.gif 1.bmp 4.bmp 8-rle.bmp 565.bmp 24-top-down.bmp 32.bmp \
    rgb.tif lzw.tif grey.tif rgba.ico colour.jpg progressive.jpg; do cp "$pictures/$name" .; done)

# Cursors of several depths; ImageMagick writes icons, of which a cursor differs in its type and its hot spot.
for colours in 2 12 200; do
    convert -size 4x40 gradient:red-blue -colors "$colours" -type Palette "ico:cursor/$colours-colours.cur"
done
convert -size 5x4 gradient:red-blue ico:cursor/true-colour.cur
for file in cursor/*.cur; do
    printf '\2' | dd of="$file" bs=1 seek=2 conv=notrunc status=none
    printf '\1\0\2\0' | dd of="$file" bs=1 seek=10 conv=notrunc status=none
done
cp image/rgba.ico "$resources/arrow.cur" cursor/

build() { # build NAME < SCRIPT
    local object
    object=$(mktemp --suffix=.o)
    x86_64-w64-mingw32-windres -I "$resources" -O coff -o "$object"
    x86_64-w64-mingw32-ld -s -shared --entry=0 --no-insert-timestamp -o "resource_module/$1" "$object"
    chmod -x "resource_module/$1"
    rm "$object"
}
build numbers <<'RC'
101 XML "text.xml"
102 PNG "dot.png"
103 CURSOR "arrow.cur"
RC
build names <<'RC'
Logo PNG "dot.png"
7 10 { "raw\0data" }
Strings XML "text.xml"
RC
