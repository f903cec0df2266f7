#!/bin/sh
# Turns the drawings of res/skin into the bitmaps, the program's icon and the busy picture, each rendered
# from its drawing at the size wanted. Two runs give equal files.
# Needs rsvg-convert (librsvg2-bin) and ImageMagick.
set -eu
cd "$(dirname "$0")/.."

skin=res/skin
bitmaps=$skin/bitmaps
magick=/usr/bin/convert
sheet=/usr/bin/montage
export MAGICK_THREAD_LIMIT=1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# pixels LENGTH DPI: a length in pixels at 96 DPI, in whole pixels at DPI.
pixels() { echo $((($1 * $2 + 48) / 96)); }

# bitmap KEY DRAWING LOOK WIDTH HEIGHT: KEY.bmp for 96 DPI and KEY_DPI.bmp for the others.
bitmap() {
  for dpi in 96 120 144 192; do
    name=$1
    [ $dpi = 96 ] || name=$1_$dpi
    rsvg-convert --stylesheet "$skin/$3.css" -w "$(pixels "$4" $dpi)" -h "$(pixels "$5" $dpi)" \
      "$skin/$2.svg" -o "$work/$name.png"
    indexed "$work/$name.png" "$bitmaps/$name.bmp"
  done
}

# indexed PNG BMP: 8 bits a pixel, run-length encoded where that is shorter. The encoder counts the padding
# of a row as pixels, so a width that needs padding stays plain.
indexed() {
  $magick "$1" -alpha off +dither -colors 256 -type Palette -compress None "BMP3:$2"
  [ $(($(identify -format %w "$1") % 4)) = 0 ] || return 0
  $magick "$1" -alpha off +dither -colors 256 -type Palette -compress RLE "BMP3:$work/short.bmp"
  [ "$(wc -c <"$work/short.bmp")" -ge "$(wc -c <"$2")" ] || mv "$work/short.bmp" "$2"
}

draw_bitmaps() {
  rm -rf "$bitmaps"
  mkdir -p "$bitmaps"
  for page in privacy sys reg adv opt one; do
    key=$(echo $page | tr '[:lower:]' '[:upper:]')
    bitmap "${key}_STTC" $page at_rest 64 64
    bitmap "${key}_ACTV" $page lit 64 64
  done
  for button in mini close help commend; do
    key=$(echo $button | tr '[:lower:]' '[:upper:]')
    bitmap "${key}_STTC" $button at_rest 17 19
    bitmap "${key}_ACTV" $button lit 17 19
  done
  for option in opt junk dup del one; do
    bitmap "$(echo $option | tr '[:lower:]' '[:upper:]')32" ${option}32 on_ground 32 32
  done
  bitmap TITLE_BIG title_big at_rest 992 76
  bitmap TITLE_SM title_sm at_rest 768 76
}

# Small sizes have a simpler drawing: the curves of the large one need more room.
draw_icon() {
  for size in 16 20 24 32 40 48 64 128 256; do
    drawing=icon
    [ $size -gt 32 ] || drawing=icon_small
    rsvg-convert -w $size -h $size $skin/$drawing.svg -o "$work/icon_$size.png"
    set -- "$@" "$work/icon_$size.png"
  done
  # The largest goes in as PNG.
  $magick "$@" -type TrueColorMatte -strip -define png:exclude-chunks=date,time -compress Zip src/app/icon.ico
}

# One turn of the busy picture, twice as large as it is shown at 96 DPI. Its ground is transparent.
draw_busy() {
  turn=0
  while [ $turn -lt 24 ]; do
    size=$(awk "BEGIN { printf \"%.3f\", 0.85 + 0.15 * cos($turn * 3.14159265 / 6) }")
    sed -e "s/rotate(0 /rotate($((turn * 15)) /" -e "s/scale(1)/scale($size)/" $skin/scan.svg >"$work/turn.svg"
    frame=$work/turn_$(printf %02d $turn).png
    rsvg-convert -w 92 -h 92 "$work/turn.svg" -o "$frame"
    turn=$((turn + 1))
  done
  $magick -delay 5 -loop 0 "$work"/turn_*.png -channel A -threshold 50% +channel +dither -colors 32 -set dispose Background \
    -layers OptimizeFrame -strip res/scan.gif
}

# row SUFFIX WIDE GROUND KEY...: these pictures side by side on their background.
row() {
  suffix=$1 wide=$2 ground=$3
  shift 3
  for key in "$@"; do
    set -- "$@" "$bitmaps/$key$suffix.bmp"
    shift
  done
  $sheet "$@" -tile "$wide"x -geometry +8+8 -background "$ground" "$work/row_$rows.png"
  rows=$((rows + 1))
}

# Every picture at 96 and at 192 DPI on its background.
draw_sheet() {
  rows=10
  for suffix in '' _192; do
    row "$suffix" 1 '#EDF2F6' TITLE_BIG TITLE_SM
    row "$suffix" 6 '#EDF2F6' PRIVACY_STTC SYS_STTC REG_STTC ADV_STTC OPT_STTC ONE_STTC \
      PRIVACY_ACTV SYS_ACTV REG_ACTV ADV_ACTV OPT_ACTV ONE_ACTV
    row "$suffix" 8 '#0F2F45' HELP_STTC COMMEND_STTC MINI_STTC CLOSE_STTC \
      HELP_ACTV COMMEND_ACTV MINI_ACTV CLOSE_ACTV
    row "$suffix" 5 '#EDF2F6' ONE32 JUNK32 DUP32 DEL32 OPT32
  done
  set --
  for size in 16 20 24 32 40 48 64 128 256; do set -- "$@" "$work/icon_$size.png"; done
  $magick "$@" -background '#EDF2F6' -gravity Center +append -bordercolor '#EDF2F6' -border 8 \
    -alpha remove "$work/row_$rows.png"
  $magick "$work"/row_*.png -background '#EDF2F6' -gravity West -append +dither -colors 256 -strip \
    -define png:exclude-chunks=date,time PNG8:docs/skin.png
}

draw_bitmaps
draw_icon
draw_busy
draw_sheet
