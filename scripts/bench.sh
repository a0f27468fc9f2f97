#!/usr/bin/env bash
# Usage: scripts/bench.sh
#
# Builds and runs the measurements and prints their tables; docs/performance.md holds one such run. Takes about a
# quarter of an hour and works on one file in the page cache.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages build headless test bench
build bench
bench=$ROOT/build/bench/bench
file=$ROOT/build/bench/sample.bin
[ -s "$file" ] || head -c 268435456 /dev/urandom >"$file"
small=$ROOT/build/bench/small.bin
head -c 33554432 "$file" >"$small"
cat "$file" >/dev/null

printf '\n## Engines in memory\n\n```\n'
"$bench/bench_engines" --benchmark_min_time=0.2 --benchmark_color=false 2>/dev/null
printf '```\n'

if [ -x "$bench/bench_skein" ]; then
    printf '\n## Skein against Botan, in one process\n\n```\n'
    "$bench/bench_skein" --benchmark_color=false 2>/dev/null
    printf '```\n'
fi

printf '\n## Driver against a bare loop of read(2), CPU time\n\n```\n'
"$bench/bench_driver" "$small" 41
printf '```\n'

printf '\n## Whole processes against other tools\n\n'
python3 "$ROOT/bench/pairs.py" tools "$file" "$bench/bench_digest"

printf '\n## Start\n\n'
export QT_QPA_PLATFORM=offscreen
python3 "$ROOT/bench/pairs.py" start "$ROOT/build/bench/kestrum" "$bench/bench_minimal_window" \
    "$bench/libbench_quit_when_shown.so"

printf '\n## A run with slow reads beside an idle window\n\n```\n'
"$bench/bench_heartbeat" "$small" 2>/dev/null
printf '```\n'
