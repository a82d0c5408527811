#!/usr/bin/env bash
# Makes the files that the corpus grew from, with ordinary tools (zip, ImageMagick, sox, lame): make_seeds.sh FOLDER
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
assets=$here/../hge
mkdir -p "$1"
cd "$1"
mkdir -p codec pack tga dds bmp wave mp3 ogg vorbis ini effect names text files/Deep

# Pictures of 9 x 6 pixels.
picture=(-size 9x6 -depth 8 gradient:red-blue -alpha set -channel A -evaluate multiply 0.5 +channel)
flat=(-size 9x6 -depth 8 xc:teal)
convert "${picture[@]}" tga/alpha.tga
convert "${picture[@]}" -compress RLE tga/runs.tga
convert "${flat[@]}" -compress RLE -type Grayscale tga/grey_runs.tga
convert "${picture[@]}" -alpha off -type Palette tga/mapped.tga
convert "${flat[@]}" -alpha off -compress RLE -type Palette -orient TopRight tga/mapped_runs.tga
for compression in none dxt1 dxt5; do
    convert "${picture[@]}" -define dds:compression=$compression -define dds:mipmaps=1 dds/$compression.dds
done
convert "${picture[@]}" bmp/alpha.bmp
convert "${picture[@]}" BMP3:bmp/plain.bmp
convert "${flat[@]}" -alpha off -type Palette BMP3:bmp/palette.bmp

convert "${flat[@]}" codec/plain.png
convert "${flat[@]}" -quality 5 codec/plain.jpg
convert "${picture[@]}" -resize 2x1 -colors 4 codec/plain.gif

# Sounds of a few frames.
tone=(synth 16s sine 441)
for coding in "unsigned-integer -b 8" "signed-integer -b 16" "signed-integer -b 24" "floating-point -b 32" \
    "floating-point -b 64" a-law ima-adpcm ms-adpcm; do
    # shellcheck disable=SC2086
    sox -R -D -n -r 8000 -e $coding "wave/${coding%% *}${coding##* }.wav" "${tone[@]}"
done
sox -R -D -n -r 8000 -b 16 -c 6 wave/surround.wav "${tone[@]}"
sox -R -D -n -r 8000 -b 16 mp3/tone.wav synth 0.2 sine 441
lame --quiet -m m --resample 8 -b 8 mp3/tone.wav mp3/tone.mp3
lame --quiet -m m --resample 8 -b 8 --add-id3v2 --tt title mp3/tone.wav mp3/tagged.mp3
lame --quiet -m j --resample 16 -V 9 mp3/tone.wav mp3/variable.mp3
rm mp3/tone.wav
sox -R -D -n -r 8000 -c 1 -C -1 vorbis/tone.ogg synth 400s sine 441
cp "$assets"/audio/assets/surround.ogg vorbis/
"$here"/tiny_vorbis.sh vorbis
cp vorbis/coupled*.ogg ogg/
# The first page, and one that ends the file with the comments.
{
    head -c 58 vorbis/tone.ogg
    printf 'OggS\0\4\0\0\0\0\0\0\0\0\1\2\3\4\1\0\0\0\0\0\0\0\1\32'
    printf '\3vorbis\2\0\0\0me\1\0\0\0\4\0\0\0a=bc\1'
} >ogg/comments.ogg

# Packs of such files.
head -c 200 /dev/zero >files/zeros
printf 'text' >files/Deep/Text.TXT
cp tga/grey_runs.tga files/
cp wave/signed-integer16.wav files/sound.wav
cd files
zip -q -r -X ../pack/plain.zip .
zip -q -r -X -0 ../pack/stored.zip grey_runs.tga sound.wav
zip -q -r -X -P geheim ../pack/secret.zip zeros Deep
zip -q -r -X -fd ../pack/described.zip zeros
cd ..
rm -r files

printf '12' >ini/whole
printf ' +-1.5e-3 apples' >ini/broken
printf '" quoted "' >ini/quoted
printf 'float4 Effect(Fragment f) : SV_TARGET { return First(f.uv); }\n' >effect/plain.hlsl
printf '\xef\xbb\xbf// \xcd\xbc\\\nfloat4' >effect/foreign.hlsl
printf 'effect:44:9: E5005: no\r\nC:\\game\\effect(45,3-5): error X1\n' >effect/messages
printf './.\\Images/A b.PNG' >names/relative
printf 'C:\\\x81\\\xcd\xbc.png' >names/drive
printf '\x05\xd6\xd0\xce\xc4a\xe4\xb8\xad' >text/chinese
printf '\x40\x00a\x00b\xff\x21\xff\x22\x00c\x00d\x00e\x00f\x00g' >text/full_width
