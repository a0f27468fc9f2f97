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

is_known() { apt-cache show "$1" >/dev/null 2>&1; }

# Of the names in "a|b" the first that is installed or that apt knows; the last where there is none.
choose_package() {
    local names name
    IFS='|' read -ra names <<<"$1"
    for name in "${names[@]}"; do
        if is_installed "$name" || { [ ${#names[@]} -gt 1 ] && is_known "$name"; }; then
            break
        fi
    done
    printf '%s\n' "$name"
}

# Installs what is missing for the given uses; calls no package manager where nothing is.
install_packages() {
    local missing=() packages=() names
    for names in $(packages_for "$@"); do
        is_installed "$(choose_package "$names")" || missing+=("$names")
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
    # Before that, apt knew nothing on a bare machine.
    for names in "${missing[@]}"; do
        packages+=("$(choose_package "$names")")
    done
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${packages[@]}" >&2
}

# The version of Qt to run with: the one that is there, the usual one first, or else the one that can be had.
find_qt() {
    local qt package
    for qt in 5 6; do
        for package in $(packages_for "qt$qt"); do
            is_installed "$package" || continue 2
        done
        printf '%s\n' "$qt"
        return
    done
    if is_known qt6-base-dev && ! is_known qtbase5-dev; then
        printf '6\n'
    else
        printf '5\n'
    fi
}

# The preset for a version of Qt, of which PRESET is the one with the usual version: preset_for PRESET QT
preset_for() { [ "$2" = 5 ] && printf '%s\n' "$1" || printf '%s-qt%s\n' "$1" "$2"; }

# The version of Qt that a preset builds with.
qt_of() { [[ $1 == *-qt6 ]] && printf '6\n' || printf '5\n'; }

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
