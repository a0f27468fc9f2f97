#!/usr/bin/env bash
# Usage: scripts/lint.sh [FILE ...]
#
# Runs clang-tidy over the program's sources (or the given ones); any finding fails. Needs build/clang.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cd "$ROOT"
files=("$@")
[ ${#files[@]} -gt 0 ] || mapfile -t files < <(find src -name '*.cpp' -not -path '*/windows/*' | sort)
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p build/clang
