# SPDX-FileCopyrightText: 2026 The Pallistrom authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash

# One picture out of those that the demo takes. To be sourced.

# tiles COLUMNSxROWS FILE [-label TEXT PICTURE]...: windows side by side, each above its caption.
tiles() {
    local layout=$1 file=$2
    shift 2
    montage -background '#4a6484' -fill white -font DejaVu-Sans -pointsize 16 \
        "$@" -tile "$layout" -geometry +18+12 "$file"
}

# compose_picture FOLDER FILE
compose_picture() {
    local folder=$1 file=$2
    # The background is plain: what is left is the window.
    mogrify -trim +repage "$folder"/*.png
    tiles 1x1 "$folder/top.png" -label 'the text before' "$folder/before.png"
    tiles 2x2 "$folder/rest.png" \
        -label 'after Control-W' "$folder/ctrlW.png" \
        -label 'after Control-U' "$folder/ctrlU.png" \
        -label 'after Control-K' "$folder/ctrlK.png" \
        -label 'after Alt-D' "$folder/altD.png"
    mkdir -p "$(dirname "$file")"
    convert "$folder/top.png" "$folder/rest.png" -background '#4a6484' -gravity center -append \
        -bordercolor '#4a6484' -border 0x10 -strip +dither -colors 64 "PNG8:$file"
}
