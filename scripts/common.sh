# shellcheck shell=bash
# Sourced by the other scripts: the project's root, and the installing and building that they share.

set -euo pipefail

ROOT=$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
export ROOT

say() { printf '== %s\n' "$*" >&2; }
die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The packages of scripts/packages.txt that are needed for one of the given uses.
packages_for() {
    awk -v uses="$*" 'BEGIN { count = split(uses, wanted, " ") }
        /^[^#]/ { for (i = 2; i <= NF; i++) for (j = 1; j <= count; j++) if ($i == wanted[j]) print $1 }' \
        "$ROOT/scripts/packages.txt" | sort -u
}

# A package that is put on hold is installed all the same.
is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Installs what is missing for the given uses; calls no package manager where nothing is.
install_packages() {
    local missing=() package
    for package in $(packages_for "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing ${missing[*]}"
    command -v apt-get >/dev/null || die "There is no apt-get here to install these packages: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "Please install these packages as root: ${missing[*]}"
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -q >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}

# build PRESET [CMAKE OPTION ...]: configures and compiles into build/PRESET, as far as not done yet.
build() {
    local preset=$1
    shift
    mkdir -p "$ROOT/build"
    [ -w "$ROOT/build" ] || die "$ROOT/build belongs to another user; please remove it first."
    say "Building ($preset)"
    (cd "$ROOT" && cmake --preset "$preset" "$@" >"$ROOT/build/configure-$preset.log" 2>&1) || {
        cat "$ROOT/build/configure-$preset.log" >&2
        die "Configuring failed."
    }
    cmake --build "$ROOT/build/$preset" >&2
}

# What is packed says when its source was written, not when it was packed: so two packings give the same bytes.
set_source_date() {
    export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
    [ -n "${SOURCE_DATE_EPOCH:-}" ] || SOURCE_DATE_EPOCH=$(git -C "$ROOT" log -1 --format=%ct 2>/dev/null) ||
        SOURCE_DATE_EPOCH=$(stat -c %Y "$ROOT/CHANGELOG.md")
    umask 022
}
