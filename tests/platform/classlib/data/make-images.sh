#!/usr/bin/env bash
# Makes the pictures of the CImage tests with ImageMagick and, for the forms that it does not write, by hand.
set -euo pipefail
cd "$(dirname "$0")"

# Four columns and three rows; the expected pixels are in cimage_test.cpp.
colours='255,0,0 0,255,0 0,0,255 255,255,255  0,0,0 128,128,128 255,255,0 0,255,255  255,0,255 255,128,0 16,32,48 200,220,240'
python3 - $colours <<'PYTHON'
import sys
alphas = [255, 200, 128, 64]
colours = [tuple(map(int, c.split(','))) for c in sys.argv[1:]]

def pam(name, kind, height, pixels):
    with open(name, 'wb') as f:
        f.write(b'P7\nWIDTH 4\nHEIGHT %d\nDEPTH %d\nMAXVAL 255\nTUPLTYPE %s\nENDHDR\n' % (height, len(pixels[0]), kind))
        for pixel in pixels:
            f.write(bytes(pixel))

pam('rgb.pam', b'RGB', 3, colours)
pam('tall.pam', b'RGB', 9, colours * 3)
pam('rgba.pam', b'RGB_ALPHA', 3, [c + (alphas[i % 4],) for i, c in enumerate(colours)])
pam('grey.pam', b'GRAYSCALE', 3, [(i * 20,) for i in range(12)])
pam('greya.pam', b'GRAYSCALE_ALPHA', 3, [(i * 20, alphas[i % 4]) for i in range(12)])
PYTHON
plain=(-strip -define png:exclude-chunks=all)

convert rgb.pam "${plain[@]}" PNG24:rgb8.png
convert rgba.pam "${plain[@]}" PNG32:rgba8.png
convert rgba.pam "${plain[@]}" -interlace PNG PNG32:rgba8-interlaced.png
convert rgb.pam "${plain[@]}" -define png:bit-depth=16 -define png:color-type=2 rgb16.png
convert rgba.pam "${plain[@]}" -define png:bit-depth=16 -define png:color-type=6 rgba16.png
convert grey.pam "${plain[@]}" -define png:color-type=0 -define png:bit-depth=8 grey8.png
convert grey.pam "${plain[@]}" -define png:color-type=0 -define png:bit-depth=16 grey16.png
convert greya.pam "${plain[@]}" -define png:color-type=4 -define png:bit-depth=8 greya8.png
convert rgb.pam "${plain[@]}" -define png:color-type=3 -define png:bit-depth=8 palette8.png
convert rgb.pam "${plain[@]}" -define png:color-type=3 -define png:bit-depth=4 palette4.png

convert -size 16x16 xc:'rgb(200,100,50)' -strip -quality 95 -sampling-factor 4:4:4 colour.jpg
convert -size 16x16 xc:'rgb(90,90,90)' -strip -colorspace Gray -quality 95 grey.jpg
convert -size 16x16 xc:'rgb(200,100,50)' -strip -quality 95 -interlace JPEG progressive.jpg

convert rgb.pam -strip rgb.gif
convert tall.pam -strip -interlace GIF interlaced.gif
convert rgb.pam -strip -fuzz 0 -transparent 'rgb(0,255,0)' transparent.gif
convert -delay 10 rgb.pam \( rgb.pam -flop \) -strip animated.gif

convert rgb.pam -strip -compress None rgb.tif
convert rgb.pam -strip -compress LZW lzw.tif
convert rgb.pam -strip -compress Zip deflate.tif
convert grey.pam -strip -compress None grey.tif

convert rgba.pam -strip ICO:rgba.ico

python3 - $colours <<'PYTHON'
import struct, sys, zlib
colours = [tuple(map(int, c.split(','))) for c in sys.argv[1:]]

def bmp(name, bits, rows, palette=b'', height=3, compression=0, masks=b''):
    header = struct.pack('<IiiHHIIiiII', 40, 4, height, 1, bits, compression, 0, 0, 0, len(palette) // 4, 0)
    offset = 14 + len(header) + len(masks) + len(palette)
    body = header + masks + palette + rows
    open(name, 'wb').write(b'BM' + struct.pack('<IHHI', 14 + len(body), 0, 0, offset) + body)

def padded(row):
    return row + b'\0' * (-len(row) % 4)

def image(pack, top_down=False):
    rows = [padded(b''.join(pack(c) for c in colours[y * 4:y * 4 + 4])) for y in range(3)]
    return b''.join(rows if top_down else reversed(rows))

def packed(bits, value):
    rows = []
    for y in range(3):
        row = 0
        for x in range(4):
            row = row << bits | value(y * 4 + x)
        row <<= (8 - 4 * bits % 8) % 8
        rows.append(padded(row.to_bytes((4 * bits + 7) // 8, 'big')))
    return b''.join(reversed(rows))

bgr = lambda c: bytes((c[2], c[1], c[0]))
index = {c: i for i, c in enumerate(colours)}
palette = b''.join(bgr(c) + b'\0' for c in colours)
bmp('24.bmp', 24, image(bgr))
bmp('24-top-down.bmp', 24, image(bgr, True), height=-3)
bmp('32.bmp', 32, image(lambda c: bgr(c) + b'\0'))
bmp('16.bmp', 16, image(lambda c: struct.pack('<H', c[0] >> 3 << 10 | c[1] >> 3 << 5 | c[2] >> 3)))
bmp('565.bmp', 16, image(lambda c: struct.pack('<H', c[0] >> 3 << 11 | c[1] >> 2 << 5 | c[2] >> 3)),
    compression=3, masks=struct.pack('<III', 0xF800, 0x07E0, 0x001F))
bmp('8.bmp', 8, image(lambda c: bytes((index[c],))), palette)
bmp('4.bmp', 4, packed(4, lambda i: i), palette + b'\0' * 16)
bmp('1.bmp', 1, packed(1, lambda i: i % 2), bgr((10, 20, 30)) + b'\0' + bgr((200, 210, 220)) + b'\0')
rle = b''.join(b''.join(bytes((1, index[c])) for c in colours[y * 4:y * 4 + 4]) + b'\0\0' for y in (2, 1, 0)) + b'\0\1'
bmp('8-rle.bmp', 8, rle, palette, compression=1)

def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))

def png(name, colour_type, bits, rows, *extra):
    raw = b''.join(b'\0' + row for row in rows)
    open(name, 'wb').write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', 4, 3, bits, colour_type, 0, 0, 0)) +
                           b''.join(chunk(*e) for e in extra) + chunk(b'IDAT', zlib.compress(raw)) + chunk(b'IEND', b''))

rows = [b''.join(bytes(c) for c in colours[y * 4:y * 4 + 4]) for y in range(3)]
png('rgb8-key.png', 2, 8, rows, (b'tRNS', struct.pack('>HHH', 0, 255, 0)))
entries = b''.join(bytes(c) for c in colours)
png('palette8-alpha.png', 3, 8, [bytes(range(y * 4, y * 4 + 4)) for y in range(3)],
    (b'PLTE', entries), (b'tRNS', bytes((255, 200, 128, 64) * 3)))
png('grey1.png', 0, 1, [b'\x50', b'\xA0', b'\xF0'])
png('grey8-key.png', 0, 8, [bytes(i * 20 for i in range(y * 4, y * 4 + 4)) for y in range(3)],
    (b'tRNS', struct.pack('>H', 40)))

icon = bytearray(open('rgba.ico', 'rb').read())
icon[65:62 + 4 * 12:4] = b'\xFF' * 12  # the alphas, after the directory and the header
open('opaque.ico', 'wb').write(icon)
PYTHON
rm -f ./*.pam
