#!/usr/bin/env bash
# Makes packaging/tarvelon.ico: the white shield with the blue cross on a blue
# rounded square. The 16 and 32 pixel pictures are drawn by hand, pixel by
# pixel, and kept as they are; the 24, 48 and 256 pixel ones are drawn at
# 1024 pixels and scaled down. The 256 pixel picture is stored as PNG, as
# Windows Vista and later read it; older systems take the smaller ones.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
icon=$root/packaging/tarvelon.ico
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
blue='#1F4E8C'
convert -size 1024x1024 xc:none -fill "$blue" -draw 'roundrectangle 64,64 959,959 128,128' \
    -fill white -draw 'path "M 512,176 L 800,288 L 800,600 Q 800,720 512,864 Q 224,720 224,600 L 224,288 Z"' \
    -fill "$blue" -draw 'rectangle 448,320 576,736' -draw 'rectangle 320,384 704,496' "$work/drawn.png"
for size in 24 48 256; do convert "$work/drawn.png" -resize "${size}x$size" "$work/$size.png"; done
# The hand-drawn pictures of the present icon, found by their size.
for size in 16 32; do
    frame=$(identify -format '%w %p\n' "$icon" | awk -v s="$size" '$1 == s { print $2; exit }')
    convert "$icon[$frame]" "$work/$size.png"
done
convert "$work"/{16,24,32,48,256}.png "$icon"
identify -format '%wx%h ' "$icon"
echo
