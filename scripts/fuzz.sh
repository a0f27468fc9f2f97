#!/usr/bin/env bash
# Usage: scripts/fuzz.sh [SECONDS]
#
# Runs each fuzz target for SECONDS, 600 unless told otherwise, on a copy of its seed inputs. Fails at the first
# finding; the input that led to it then stands in build/fuzz/findings.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

seconds=${1:-600}
folder=$ROOT/build/fuzz
findings=$folder/findings

install_packages build qt5 fuzz
say "Building the fuzzers"
cmake -S "$ROOT" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
    -DKESTRUM_FUZZ=ON -DKESTRUM_TESTS=OFF -DKESTRUM_SANITIZE=address,undefined,fuzzer-no-link >&2
cmake --build "$folder" --target fuzzers >&2

# The inputs go through files: in memory where the system has a place for them.
scratch=$(mktemp -d "$([ -d /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")/fuzz-XXXXXX")
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch
mkdir -p "$findings"

for program in "$folder"/fuzz/fuzz_*; do
    target=${program##*/fuzz_}
    cp -r "$ROOT/fuzz/corpus/$target" "$scratch/$target"
    say "Fuzzing $target for $seconds seconds"
    "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$findings/$target-" "$scratch/$target" >"$folder/$target.log" 2>&1 || {
        tail -n 60 "$folder/$target.log" >&2
        die "A finding in $target: see $findings"
    }
    grep -E 'DONE|number_of_executed_units|peak_rss' "$folder/$target.log"
done
say "No findings"
