#!/usr/bin/env bash
# Makes the packs and pictures that the resource tests read, with the ordinary tools: make_data.sh FOLDER
set -euo pipefail
cd "$1"
rm -rf files packs pictures out
mkdir -p files packs pictures out
export LC_ALL=C

# --- packs ---
cd files
mkdir -p Images/Deep 'with space'
for i in {1..2000}; do printf 'line %d of a text that packs well\n' "$i"; done >Images/Long.TXT
printf 'deep' >Images/Deep/Data.bin
printf 'spaced' >'with space/a b.txt'
: >empty.txt
printf 'from the pack' >shared.txt
zip -q -r ../packs/plain.zip .
zip -q -r -0 ../packs/stored.zip .
zip -q -r -P geheim ../packs/secret.zip .
zip -q -r -fd ../packs/described.zip .
zip -q -r -fz ../packs/sixtyfour.zip .
zip -q -Z bzip2 ../packs/bzip2.zip Images/Long.TXT
printf 'from the newer pack' >shared.txt
zip -q ../packs/newer.zip shared.txt
{ printf 'a program in front of the archive'; cat ../packs/plain.zip; } >../packs/prefixed.zip
cp ../packs/plain.zip ../packs/commented.zip
printf 'a comment with PK\005\006 in the middle of it' | zip -q -z ../packs/commented.zip >/dev/null
printf 'content' >a
zip -q -0 -X ../packs/one.zip a
rm a
: >../packs/empty.zip
head -c 5000 Images/Long.TXT >../packs/foreign.zip

# Names in Chinese: as UTF-8, as UTF-8 that is flagged so, and as GBK. The last has second bytes "\" and "A".
mkdir -p ../chinese/图片 ../gbk
printf 'black' >../chinese/图片/全黑透明.png
(cd ../chinese && zip -q -r ../packs/utf8.zip . && LC_ALL=C.UTF-8 cmake -E tar cf ../packs/flagged.zip --format=zip 图片/*)
printf 'gbk' >../gbk/$'\xcd\xbc\xc6\xac.txt'
printf 'backslash' >../gbk/$'\x81\x5c.txt'
printf 'letter' >../gbk/$'\x81\x41.txt'
(cd ../gbk && zip -q -r ../packs/gbk.zip .)
rm -rf ../chinese ../gbk
cd ..

# UTF-8 in an extra field beside a name without it, as zip writes them where the locale has another code page.
byte() { printf "\\x$(printf %02x "$1")"; }
number() { for ((i = 0; i < $1; ++i)); do byte $(($2 >> 8 * i & 255)); done; }
crc() { printf %s "$1" | gzip | tail -c 8 | head -c 4; }
name='??.png' true_name=图片/全黑透明.png
field() { printf up; number 2 $((5 + ${#true_name})); byte 1; crc "$name"; printf %s "$true_name"; }
header() {
    number 8 0; crc black; number 4 5; number 4 5
    number 2 ${#name}; number 2 "$(field | wc -c)"
}
{ printf 'PK\3\4'; number 2 20; header; printf %s "$name"; field; printf black; } >packs/files
{ printf 'PK\1\2'; number 4 $((20 << 16 | 20)); header; number 14 0; printf %s "$name"; field; } >packs/directory
{
    cat packs/files packs/directory
    printf 'PK\5\6'; number 4 0; number 4 $((1 << 16 | 1))
    number 4 "$(stat -c %s packs/directory)"; number 4 "$(stat -c %s packs/files)"; number 2 0
} >packs/extra.zip
rm packs/files packs/directory

# --- pictures: 7 x 5 pixels of known colours, and one of a single colour ---
for y in {0..4}; do
    for x in {0..6}; do
        byte $((x * 40)); byte $((y * 60)); byte $((250 - x * 30)); byte $(((x + y) % 3 * 127 + 1))
    done
done >pictures/sample.rgba
cd pictures
sample=(-size 7x5 -depth 8 rgba:sample.rgba)
convert "${sample[@]}" PNG32:alpha.png
convert "${sample[@]}" -interlace PNG PNG32:interlaced.png
convert "${sample[@]}" PNG64:deep.png
convert "${sample[@]}" -alpha off PNG24:opaque.png
convert "${sample[@]}" -alpha off -type Palette PNG8:palette.png
convert "${sample[@]}" -colorspace Gray -define png:color-type=4 greyalpha.png
convert "${sample[@]}" -alpha off BMP3:opaque.bmp
convert "${sample[@]}" -alpha off -type Palette BMP3:palette.bmp
convert "${sample[@]}" alpha.bmp
convert "${sample[@]}" -orient TopLeft alpha.tga
convert "${sample[@]}" -compress RLE -orient TopLeft runs.tga
convert "${sample[@]}" -alpha off -orient TopLeft opaque.tga
convert "${sample[@]}" -alpha off -type Palette -orient TopLeft palette.tga
convert "${sample[@]}" -define dds:compression=none -define dds:mipmaps=0 alpha.dds
convert "${sample[@]}" -alpha off -define dds:compression=none -define dds:mipmaps=0 opaque.dds
convert "${sample[@]}" alpha.tif
convert "${sample[@]}" -channel A -threshold 40% +channel GIF:holes.gif
flat=(-size 18x10 -depth 8 xc:'rgb(200,100,50)')
convert "${flat[@]}" -quality 95 flat.jpg
convert "${flat[@]}" -define dds:compression=dxt1 -define dds:mipmaps=0 flat1.dds
convert "${flat[@]}" -alpha set -channel A -evaluate set 50% +channel -define dds:compression=dxt5 \
    -define dds:mipmaps=3 flat5.dds
