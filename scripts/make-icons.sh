#!/usr/bin/env bash
# Usage: scripts/make-icons.sh
#
# Makes resources/icons/*, resources/windows/kestrum.ico and resources/linux/icons/* from resources/svg/*.svg.
# Needs rsvg-convert (Debian package librsvg2-bin) and icotool (icoutils).
# The same tool versions give the same bytes on every run.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
readonly root
readonly svg_dir="$root/resources/svg"
readonly icon_dir="$root/resources/icons"
readonly theme_dir="$root/resources/linux/icons"

readonly action_icons=(additem algorithm copy email exit folder help home settings shortcuts start stop)
# Qt decodes every entry of a file when it makes an icon, so the program's own icons hold what a window shows and
# no more: that is a good part of what a start takes. The shell's icon of the Windows program has all sizes.
readonly window_sizes_px=(16 24 32 48 64)
readonly shell_sizes_px=(16 20 24 32 40 48 64 128 256)
# For the icon theme of Linux desktops; 22 is the size of panels.
readonly theme_sizes_px=(16 22 24 32 48 64 128 256)
# From this size on an entry is stored as PNG: as a bitmap it would weigh 256 KiB.
readonly first_png_entry_px=256

require_tool() {
    command -v "$1" >/dev/null || {
        echo "make-icons.sh: $1 not found; install the package $2" >&2
        exit 1
    }
}

# render_png NAME SIZE_PX OUTPUT
render_png() {
    rsvg-convert --width "$2" --height "$2" --output "$3" "$svg_dir/$1.svg"
}

# make_ico NAME OUTPUT SIZE_PX...
make_ico() {
    local name=$1 output=$2 size png
    local entries=()
    shift 2
    for size in "$@"; do
        png="$work_dir/$name-$size.png"
        render_png "$name" "$size" "$png"
        if ((size >= first_png_entry_px)); then
            entries+=("--raw=$png")
        else
            entries+=("$png")
        fi
    done
    icotool --create --bit-depth=32 --output="$output" "${entries[@]}"
}

# make_png SVG_NAME SIZE_PX RESOURCE_NAME: Qt takes the @2x file on screens scaled to 200 %
make_png() {
    render_png "$1" "$2" "$icon_dir/$3.png"
    render_png "$1" "$(($2 * 2))" "$icon_dir/$3@2x.png"
}

require_tool rsvg-convert librsvg2-bin
require_tool icotool icoutils

work_dir="$(mktemp -d)"
trap 'rm -rf "$work_dir"' EXIT
mkdir -p "$icon_dir" "$theme_dir"

make_ico main "$root/resources/windows/kestrum.ico" "${shell_sizes_px[@]}"
for icon in main "${action_icons[@]}"; do
    make_ico "$icon" "$icon_dir/$icon.ico" "${window_sizes_px[@]}"
done
for size in "${theme_sizes_px[@]}"; do
    render_png main "$size" "$theme_dir/$size.png"
done
make_png ok 16 ok_16_16
make_png cancel 16 cancel_16_16
make_png downarrow 9 downarrow
