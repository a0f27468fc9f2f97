#!/usr/bin/env bash
# Usage: scripts/bench.sh [PRESET]
#
# Builds and runs the measurements and prints their tables; docs/performance.md holds one such run. PRESET is bench if
# it is not given; bench-qt6 is the one with Qt 6. Takes about a quarter of an hour and works on one file in the page
# cache.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

preset=${1:-bench}
install_packages build "qt$(qt_of "$preset")" headless test bench
build "$preset"
built=$ROOT/build/$preset
bench=$built/bench
file=$built/sample.bin
[ -s "$file" ] || head -c 268435456 /dev/urandom >"$file"
small=$built/small.bin
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

printf '\n## Texts of a language, against fgets and std::map\n\n```\n'
"$bench/bench_i18n" "$ROOT/languages"
printf '```\n'

printf '\n## Reading expected digests\n\n```\n'
"$bench/bench_compare"
printf '```\n'

printf '\n## A log statement, against a lock and unlock\n\n```\n'
"$bench/bench_log" --benchmark_color=false 2>/dev/null
printf '```\n'

printf '\n## Whole processes against other tools\n\n'
python3 "$ROOT/bench/pairs.py" tools "$file" "$bench/bench_digest"

measure_start() {
    QT_QPA_PLATFORM=$1 python3 "$ROOT/bench/pairs.py" start "$built/kestrum" \
        "$bench/bench_minimal_window" "$bench/libbench_quit_when_shown.so"
}

# A display of this script's own, with a window manager, which end with it.
scratch=$(mktemp -d)
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$scratch/display" >/dev/null 2>&1 &
display_pid=$!
trap 'kill "$display_pid" 2>/dev/null || true; rm -rf "$scratch"' EXIT
until [ -s "$scratch/display" ]; do
    kill -0 "$display_pid" 2>/dev/null || die "The virtual display did not start."
    sleep 0.1
done
DISPLAY=:$(cat "$scratch/display")
export DISPLAY
openbox >/dev/null 2>&1 &

printf '\n## Start\n\nUnder X11:\n\n'
measure_start xcb
printf '\nOn the offscreen platform:\n\n'
measure_start offscreen

export QT_QPA_PLATFORM=offscreen
printf '\n## A run with slow reads beside an idle window\n\n```\n'
"$bench/bench_heartbeat" "$small" 2>/dev/null
printf '```\n'
