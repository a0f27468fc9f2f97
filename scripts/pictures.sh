#!/usr/bin/env bash
# Usage: scripts/pictures.sh BUILD_FOLDER PICTURES
#
# Builds kestrum_pictures in a configured BUILD_FOLDER and lets it take every window in every language, at 100 and at
# 150 %, into the folders PICTURES/1 and PICTURES/1.5. Names each text that is cut, and fails where there is one. Run it
# before a release and look at the pictures too.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -eq 2 ] || die "usage: scripts/pictures.sh BUILD_FOLDER PICTURES"
build=$1 pictures=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --build "$build" --target kestrum_pictures
truncate -s 20G "$scratch/large.bin"
mkdir -m 700 "$scratch/runtime"
export XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch XDG_CACHE_HOME=$scratch XDG_RUNTIME_DIR=$scratch/runtime
export QT_QPA_PLATFORM=offscreen QT_STYLE_OVERRIDE=fusion LC_ALL=C.UTF-8 DBUS_SESSION_BUS_ADDRESS=disabled:
unset QT_QPA_PLATFORMTHEME

status=0
for scale in 1 1.5; do
    mkdir -p "$pictures/$scale"
    QT_SCALE_FACTOR=$scale "$build/kestrum_pictures" "$pictures/$scale" "$scratch/large.bin" |
        sed "s/^/scale $scale, /" || status=1
done
exit "$status"
