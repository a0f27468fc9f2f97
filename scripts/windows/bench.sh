#!/usr/bin/env bash
# Usage: scripts/windows/bench.sh
#
# Holds the rate of the Windows hash core under Wine against that of the Linux one, on one file of 1 GiB in the page
# cache. KESTRUM_WINDOWS_SYSROOT names the libraries.

source "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages build qt5 bench windows
require_sysroot
build bench
build windows -DKESTRUM_BENCH=ON
use_wine "$ROOT/build/wine"
export WINEPATH="Z:${KESTRUM_WINDOWS_SYSROOT//\//\\}\\bin"
file=$ROOT/build/bench/large.bin
[ -s "$file" ] || head -c 1073741824 /dev/urandom >"$file"
cat "$file" >/dev/null
python3 "$ROOT/bench/pairs.py" systems "$file" "$ROOT/build/bench/bench/bench_digest" "$wine" \
    "$ROOT/build/windows/bench/bench_digest.exe"
