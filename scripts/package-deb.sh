#!/usr/bin/env bash
# Usage: scripts/package-deb.sh [5|6]
#
# Builds the program in build/deb, without the tests and with Qt 5 unless told otherwise, and packs
# build/kestrum_<version>_<architecture>.deb.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

qt=${1:-5}
install_packages build "qt$qt" package
set_source_date

# The tools put what they make beside the source, so that it gets a folder of its own.
work=$ROOT/build/deb
rm -rf "$work"
mkdir -p "$work/kestrum"
tar -C "$ROOT" --exclude=./build --exclude=./.git -c . | tar -C "$work/kestrum" -x
find "$work/kestrum" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
say "Building and packing"
(cd "$work/kestrum" && KESTRUM_QT=$qt DEB_BUILD_OPTIONS="nocheck noautodbgsym" dpkg-buildpackage --build=binary \
    --no-sign) >"$work/log" 2>&1 || {
    tail -n 40 "$work/log" >&2
    die "Packing failed; see $work/log"
}
package=("$work"/*.deb)
mv "${package[0]}" "$ROOT/build/"
printf '%s\n' "$ROOT/build/$(basename "${package[0]}")"
