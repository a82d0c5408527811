#!/usr/bin/env bash
# Writes the smallest OGG Vorbis sounds that reach most of a decoder, for no encoder makes them: real files take the
# fuzzer a hundred times as long. tiny_vorbis.sh FOLDER
set -euo pipefail

packet=

# bits VALUE COUNT ...: into the packet, the lowest bit first.
bits() {
    local value count i
    while (($#)); do
        value=$1 count=$2
        shift 2
        for ((i = 0; i < count; ++i)); do packet+=$((value >> i & 1)); done
    done
}

# text STRING: its bytes.
text() {
    local i
    for ((i = 0; i < ${#1}; ++i)); do bits "$(printf '%d' "'${1:i:1}")" 8; done
}

# flush FLAGS POSITION SEQUENCE: the packet as an OGG page of its own. Checksums are the reader's business here.
flush() {
    local i byte length=$(((${#packet} + 7) / 8)) body=
    packet+=0000000
    for ((i = 0; i < length; ++i)); do
        byte=$(rev <<<"${packet:8*i:8}")
        printf -v byte '\\x%02x' $((2#$byte))
        body+=$byte
    done
    packet=
    printf -v i 'OggS\\0\\x%02x\\x%02x\\0\\0\\0\\0\\0\\0\\0me  \\x%02x\\0\\0\\0\\0\\0\\0\\0' "$1" "$2" "$3"
    if ((length < 255)); then printf -v byte '\\1\\x%02x' "$length"; else printf -v byte '\\2\\xff\\x%02x' $((length - 255)); fi
    printf '%b' "$i$byte$body"
}

# headers CHANNELS BLOCKS: the first two packets; BLOCKS is the byte of the sizes.
headers() {
    bits 1 8; text vorbis; bits 0 32 "$1" 8 8000 32 0 96 "$2" 8 1 8
    flush 2 0 0
    bits 3 8; text vorbis; bits 0 64 1 8
    flush 0 0 1
    bits 5 8; text vorbis
}

# Two codes of one bit.
two_codes() { bits 0x564342 24 1 16 2 24 0 2 0 5 0 5 0 4; }
# The same, told by how many are of each length.
ordered_codes() { bits 0x564342 24 1 16 2 24 1 1 0 5 2 2 0 4; }
# Four codes of two bits for values from -1 on, two at a time; $1: kind of table, $2: its length.
values() {
    local i
    bits 0x564342 24 2 16 4 24 0 2 1 5 1 5 1 5 1 5
    bits "$1" 4 $((0xE2800001)) 32 $((0x62800001)) 32 1 4 0 1
    for ((i = 0; i < $2; ++i)); do bits $((i % 4)) 2; done
}
# floor BOOK CODES: a partition of one point.
floor() { bits 1 16 1 5 0 4 0 3 0 2 $(($1 + 1)) 8 1 2 4 4 "$2" 4; }
# residue KIND END: classes of nothing and of values.
residue() { bits "$1" 16 0 24 "$2" 24 7 24 1 6 0 8 0 3 0 1 1 3 0 1 1 8; }
# sounds POSITION SEQUENCE BYTE...: the last packet on the last page.
sounds() {
    local position=$1 sequence=$2 byte
    shift 2
    for byte; do bits "$byte" 8; done
    flush 4 "$position" "$sequence"
}

cd "$1"

# Silence: one book, a floor without points, nothing in it.
{
    headers 1 0x66
    bits 0 8; two_codes
    bits 0 6 0 16 0 6 1 16 0 5 0 2 4 4
    bits 0 6 0 16 0 24 0 24 0 24 0 6 0 8 0 3 0 1
    bits 0 6 0 16 0 1 0 1 0 2 0 8 0 8 0 8
    bits 0 6 0 1 0 16 0 16 0 8 1 1
    flush 0 0 2
    bits 0 8; flush 0 0 3
    sounds 32 4 0
} >silence.ogg

# Two channels that depend on each other, long and short blocks, each kind of residue and of table.
for kind in 0 1 2; do
    {
        headers 2 0x76
        bits 1 8
        if ((kind == 2)); then ordered_codes; else two_codes; fi
        if ((kind == 1)); then values 2 8; else values 1 2; fi
        bits 0 6 0 16 0 6; floor 0 9
        bits 0 6; residue $kind $((kind == 2 ? 64 : 32))
        bits 0 6 0 16 0 1 1 1 0 8 0 1 1 1 0 2 0 8 0 8 0 8
        bits 1 6 0 1 0 16 0 16 0 8 1 1 0 16 0 16 0 8 1 1
        flush 0 0 2
        for byte in 0xB4 0xFF 0x5A 0x37; do bits $byte 8 0xA53C 16 0x6D 8; done; flush 0 0 3
        for byte in 0x06 0xB6; do bits $byte 8 0xE7D9 16; done; flush 0 32 4
        sounds 96 5 0xAE 0xF1 0x4B 0x9D 0x72 0xFF 0x08
    } >coupled$kind.ogg
done
