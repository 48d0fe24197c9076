#!/bin/sh
# Makes the pictures of this directory with ImageMagick (6.9). Each shows 6 by 4 pixels, one half red over
# the other blue, unless its name says otherwise.
set -e
cd "$(dirname "$0")"
plain="-define png:exclude-chunks=date,time"
two="$plain -size 6x2 xc:#ff0000 xc:#0000ff -append +repage -depth 8"
convert $two -quality 100 -sampling-factor 4:4:4 rgb.jpg
convert $two -colorspace Gray -quality 100 grey.jpg
convert $two -colorspace CMYK -quality 100 cmyk.jpg
convert $two -quality 100 -sampling-factor 4:4:4 -interlace JPEG progressive.jpg
convert $two BMP3:rgb.bmp
convert $two -type Palette BMP3:palette.bmp
convert $two PNG24:rgb.png
convert $two -depth 16 PNG48:deep.png
convert $two -alpha set -channel A -evaluate set 50% PNG32:alpha.png
convert $two -interlace PNG PNG24:interlaced.png
convert $two -type Palette PNG8:palette.png
convert $two -colorspace Gray -depth 16 -define png:bit-depth=16 -define png:color-type=0 grey-deep.png
convert $two -compress RLE -type Palette BMP3:rle.bmp
convert $two -define bmp:subtype=RGB565 BMP:high-colour.bmp
convert $two rgb.gif
convert -delay 10 \( $two \) \( -size 6x4 xc:green \) animated.gif
convert $two rgb.tif
convert \( $two \) \( -size 6x4 xc:green \) pages.tif
convert $two -compress LZW lzw.tif
convert $two -endian MSB -depth 16 deep-big-endian.tif
convert $two -colorspace CMYK -compress Zip cmyk.tif
# Upside down, with the word that it is to be turned by half: an Exif block with the orientation 3.
convert $two -rotate 180 -quality 100 -sampling-factor 4:4:4 turned.jpg
python3 - <<'END'
import struct
tiff = b"MM\0*" + struct.pack(">IHHHIHHI", 8, 1, 0x0112, 3, 1, 3, 0, 0)
block = b"Exif\0\0" + tiff
jpeg = open("turned.jpg", "rb").read()
open("turned.jpg", "wb").write(jpeg[:2] + b"\xff\xe1" + struct.pack(">H", len(block) + 2) + block + jpeg[2:])
END
# ImageMagick's policy forbids it this one.
python3 - <<'END'
import struct, zlib
def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
rows = b"\0" + b"\xff\0\0" * 65500
open("wide.png", "wb").write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 65500, 1, 8, 2, 0, 0, 0)) +
                            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))
END
convert $plain -size 12x8 xc:#00ff00 -depth 8 PNG24:rgb@2x.png
cp rgb.png png-inside.jpg
cp rgb.jpg jpeg-inside.png
cp rgb.png MyBMP.png
head -c 300 rgb.jpg > truncated.jpg
head -c 60 rgb.png > truncated.png
head -c 40 rgb.bmp > truncated.bmp
: > empty.png
echo "no picture" > text.png
# Files of each format that claim 60 000 by 60 000 pixels and hold none, or few; of a TIFF also the tiles, of
# a GIF the frame. And two honest pictures of one colour, the largest that is shown and one row more.
printf 'BM\0\0\0\0\0\0\0\0\066\0\0\0\050\0\0\0\140\352\0\0\140\352\0\0\001\0\030\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' > bomb.bmp
python3 - <<'END'
import struct, zlib
def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
def png(name, width, height, depth, colour, rows):
    open(name, "wb").write(b"\x89PNG\r\n\x1a\n" +
                           chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, depth, colour, 0, 0, 0)) +
                           chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))
png("bomb.png", 60000, 60000, 8, 2, b"\0" * 1000)
png("largest.png", 8192, 4096, 1, 0, b"\0" * (4096 * 1025))
png("too-large.png", 8192, 4097, 1, 0, b"\0" * (4097 * 1025))
for name in ("rgb", "grey", "progressive"):
    jpeg = bytearray(open(name + ".jpg", "rb").read())
    size = jpeg.index(b"\xff\xc2" if name == "progressive" else b"\xff\xc0") + 5
    jpeg[size:size + 4] = struct.pack(">HH", 60000, 60000)
    open("bomb-" + name + ".jpg", "wb").write(jpeg)
gif = bytearray(open("rgb.gif", "rb").read())
gif[6:10] = struct.pack("<HH", 60000, 60000)
open("bomb.gif", "wb").write(gif)
gif = bytearray(open("rgb.gif", "rb").read())
frame = gif.index(b",\0\0\0\0\6\0\4\0") + 5
gif[frame:frame + 4] = struct.pack("<HH", 60000, 60000)
open("bomb-frame.gif", "wb").write(gif)
def tiff(name, *tags):
    entries = b"".join(struct.pack("<HHII", tag, 4, 1, value) for tag, value in tags)
    open(name, "wb").write(b"II*\0" + struct.pack("<IH", 8, len(tags)) + entries + b"\0" * 64)
tiff("bomb.tif", (256, 60000), (257, 60000), (258, 8), (259, 1), (262, 1), (273, 120), (278, 60000), (279, 10))
tiff("bomb-tiles.tif", (256, 6), (257, 4), (258, 8), (259, 1), (262, 1), (322, 59968), (323, 59968), (324, 120),
     (325, 10))
END
