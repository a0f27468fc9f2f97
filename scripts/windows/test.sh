#!/usr/bin/env bash
# Usage: scripts/windows/test.sh
#
# Builds the program and its tests for 64-bit Windows, runs all unit and widget tests under Wine, then packs zip
# and setup program, and drives the program unpacked from the one and installed by the other. KESTRUM_WINDOWS_SYSROOT names the libraries.

source "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages build qt5 headless test windows
require_sysroot
build windows -DKESTRUM_TESTS=ON

use_wine "$ROOT/build/wine"
# The same names as Wine sees them: its drive Z is the root folder.
export WINEPATH="Z:${KESTRUM_WINDOWS_SYSROOT//\//\\}\\bin"
export QT_PLUGIN_PATH="Z:$KESTRUM_WINDOWS_SYSROOT/plugins"
say "Testing (windows, under Wine)"
ctest --test-dir "$ROOT/build/windows" --output-on-failure --no-tests=error -j "$(nproc)"
unset WINEPATH QT_PLUGIN_PATH

zip=$(package_zip)
say "Testing the program from $(basename "$zip")"
cd "$ROOT/tests/e2e/windows"
KESTRUM_ZIP=$zip KESTRUM_SETUP=${zip%.zip}-setup.exe KESTRUM_WINE=$wine KESTRUM_WINESERVER=$wineserver KESTRUM_PROGRAM=kestrum.exe \
    KESTRUM_E2E_PICTURES=$ROOT/build/windows/pictures \
    python3 -B -m unittest --verbose test_zip test_setup
