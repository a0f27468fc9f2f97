#!/usr/bin/env bash
# Usage: scripts/package-deb.sh
#
# Builds the program in build/deb, without the tests, and packs build/kestrum_<version>_<architecture>.deb.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages build package
cd "$ROOT"
say "Building (deb)"
cmake --preset release -B build/deb -DKESTRUM_TESTS=OFF >&2
cmake --build build/deb >&2

say "Packing"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cpack --config build/deb/CPackConfig.cmake -B "$work" >&2
package=("$work"/*.deb)
mv "${package[0]}" build/
printf '%s\n' "$ROOT/build/$(basename "${package[0]}")"
