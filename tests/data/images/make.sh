#!/bin/sh
# Makes the pictures of this directory with ImageMagick (6.9). Each shows 6 by 4 pixels, one half red over
# the other blue, unless its name says otherwise.
set -e
cd "$(dirname "$0")"
two="-size 6x2 xc:#ff0000 xc:#0000ff -append +repage -depth 8"
convert $two -quality 100 -sampling-factor 4:4:4 rgb.jpg
convert $two -colorspace Gray -quality 100 grey.jpg
convert $two -colorspace CMYK -quality 100 cmyk.jpg
convert $two -quality 100 -sampling-factor 4:4:4 -interlace JPEG progressive.jpg
convert $two BMP3:rgb.bmp
convert $two -type Palette BMP3:palette.bmp
convert $two PNG24:rgb.png
convert $two -depth 16 PNG48:deep.png
convert $two -alpha set -channel A -evaluate set 50% PNG32:alpha.png
convert $two rgb.gif
convert -delay 10 \( $two \) \( -size 6x4 xc:green \) animated.gif
convert $two rgb.tif
convert \( $two \) \( -size 6x4 xc:green \) pages.tif
# ImageMagick's policy forbids it this one.
python3 - <<'END'
import struct, zlib
def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
rows = b"\0" + b"\xff\0\0" * 65500
open("wide.png", "wb").write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 65500, 1, 8, 2, 0, 0, 0)) +
                            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))
END
convert -size 12x8 xc:#00ff00 -depth 8 PNG24:rgb@2x.png
cp rgb.png png-inside.jpg
cp rgb.jpg jpeg-inside.png
cp rgb.png MyBMP.png
head -c 300 rgb.jpg > truncated.jpg
head -c 60 rgb.png > truncated.png
head -c 40 rgb.bmp > truncated.bmp
: > empty.png
echo "no picture" > text.png
# A BMP, a PNG and a JPEG that claim 60 000 by 60 000 pixels and hold none, or few.
printf 'BM\0\0\0\0\0\0\0\0\066\0\0\0\050\0\0\0\140\352\0\0\140\352\0\0\001\0\030\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' > bomb.bmp
python3 - <<'END'
import struct, zlib
def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
open("bomb.png", "wb").write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 60000, 60000, 8, 2, 0, 0, 0)) +
                            chunk(b"IDAT", zlib.compress(b"\0" * 1000)) + chunk(b"IEND", b""))
jpeg = bytearray(open("rgb.jpg", "rb").read())
size = jpeg.index(b"\xff\xc0") + 5
jpeg[size:size + 4] = struct.pack(">HH", 60000, 60000)
open("bomb.jpg", "wb").write(jpeg)
END
