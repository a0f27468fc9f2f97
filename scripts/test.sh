#!/usr/bin/env bash
# Usage: scripts/test.sh [PRESET] [CTEST OPTION ...]
#
# Installs what is missing, builds the program with its tests and runs them all. PRESET is release if it is not
# given; release-qt6 is the one with Qt 6, asan and tsan are the sanitizer builds.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

preset=release
if [ $# -gt 0 ] && [ "${1#-}" = "$1" ]; then
    preset=$1
    shift
fi

qt=$(qt_of "$preset")
install_packages build "qt$qt" headless test "test$qt"
build "$preset" -DKESTRUM_TESTS=ON
say "Testing ($preset)"
exec ctest --test-dir "$ROOT/build/$preset" --output-on-failure --no-tests=error -j "$(nproc)" "$@"
