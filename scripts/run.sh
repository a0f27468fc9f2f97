#!/usr/bin/env bash
# Usage: scripts/run.sh [FILE]
#
# Installs what is missing, builds the program and starts it, with FILE in its input field if one is given. It is built
# with the Qt that is installed, Qt 5 before Qt 6.
# On a machine without a display FILE is digested in a real window on a virtual one: its screenshot goes to
# build/screenshot.png and the digest, as the window put it on the clipboard, to standard output.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

has_display() { [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; }

# The program's own words for these would come too late: after the installing and the building.
check_file() {
    [ -e "$1" ] || die "$1: no such file"
    [ -f "$1" ] || [ -b "$1" ] || die "$1: not a file"
    [ -r "$1" ] || die "$1: the file cannot be read"
}

[ $# -le 1 ] || die "usage: scripts/run.sh [FILE]"
arguments=()
if [ $# -eq 1 ]; then
    check_file "$1"
    arguments=("$(realpath -- "$1")")
elif ! has_display; then
    die "There is no display here. Name a file to have it digested in a window on a virtual one."
fi

qt=$(find_qt)
preset=$(preset_for release "$qt")
install_packages build "qt$qt"
build "$preset" -DKESTRUM_TESTS=OFF
program=$ROOT/build/$preset/kestrum

if has_display; then
    install_packages network
    [ -n "${DISPLAY:-}" ] || install_packages "wayland$qt"
    exec "$program" "${arguments[@]}"
fi
install_packages headless
exec "$ROOT/scripts/run-headless.sh" "$program" "${arguments[@]}" "$ROOT/build/screenshot.png"
