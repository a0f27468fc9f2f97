#!/usr/bin/env bash
# Usage: scripts/format.sh [--check]
#
# Brings all C++ sources into the project's format; with --check only says which are not, and fails.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

options=(-i)
[ "${1:-}" != --check ] || options=(--dry-run --Werror)
cd "$ROOT"
find src tests bench scripts -name '*.h' -o -name '*.cpp' | sort | xargs clang-format "${options[@]}"
