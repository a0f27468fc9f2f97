# Sourced by the Windows scripts, behind ../common.sh: the prefix with the libraries, and running under Wine.

# Sets KESTRUM_WINDOWS_SYSROOT to an absolute path, or fails with the way to get one.
require_sysroot() {
    [ -n "${KESTRUM_WINDOWS_SYSROOT:-}" ] ||
        die "KESTRUM_WINDOWS_SYSROOT has to name the libraries for Windows; scripts/windows/build-sysroot.sh makes them."
    [ -e "$KESTRUM_WINDOWS_SYSROOT/bin/Qt5Core.dll" ] ||
        die "$KESTRUM_WINDOWS_SYSROOT holds no libraries for Windows."
    KESTRUM_WINDOWS_SYSROOT=$(realpath -- "$KESTRUM_WINDOWS_SYSROOT")
    export KESTRUM_WINDOWS_SYSROOT
}

# The project's version, as CMake has it.
project_version() { sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$ROOT/build/windows/CMakeCache.txt"; }

# use_wine FOLDER: makes FOLDER the Wine prefix of this script, ready for use, with a server that ends with it.
use_wine() {
    export WINEPREFIX=$1 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="winemenubuilder.exe,mscoree,mshtml="
    wine=$(PATH=$PATH:/usr/lib/wine command -v wine64) || die "Wine is not installed."
    wineserver=$(PATH=$PATH:/usr/lib/wine command -v wineserver) || die "Wine has no server here."
    # Wine makes links to the home that it is prepared in; the desktop of a test is not the user's.
    mkdir -p "$WINEPREFIX/home"
    say "Preparing Wine"
    HOME=$WINEPREFIX/home "$wine" wineboot --init >/dev/null 2>&1 || die "Wine could not be prepared."
}

# Packs the zip and prints its name.
package_zip() { "$ROOT/scripts/windows/package.sh" | tail -n 1; }
