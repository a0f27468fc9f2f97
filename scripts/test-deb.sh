#!/usr/bin/env bash
# Usage: scripts/test-deb.sh PACKAGE
#
# Installs, upgrades and purges the package on this system, and fails where the program does not start or something of
# it stays. Meant for a system of no other use: scripts/chroot.sh SUITE scripts/test-deb.sh build/NAME.deb

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -eq 1 ] || die "usage: scripts/test-deb.sh PACKAGE"
package=$(realpath -- "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen HOME=$work

apt_get() { apt-get -y -q -o Dpkg::Use-Pty=0 "$@" >"$work/apt.log" 2>&1 || { cat "$work/apt.log" >&2; die "apt-get $* failed"; }; }

# The same package as an older version, with a file that the new one lacks.
make_older() {
    dpkg-deb --raw-extract "$package" "$work/older"
    sed -i 's/^Version: .*/Version: 0.9/' "$work/older/DEBIAN/control"
    touch "$work/older/usr/share/doc/kestrum/older"
    dpkg-deb --root-owner-group --build "$work/older" "$work/older.deb" >/dev/null
    rm -rf "$work/older"
}

expect_start() {
    local status=0
    timeout 3 kestrum || status=$?
    [ "$status" -eq 124 ] || die "The program does not run: $status"
}

# What is called after the program, without the managers' own records.
files() { find / -xdev \( -path /proc -o -path /sys -o -path "$work" -o -path "$ROOT" -o -path /var/lib/apt \) -prune -o -iname '*kestrum*' -print; }

apt_get update
make_older
before=$(files)
apt_get install --no-install-recommends "$work/older.deb"
expect_start
apt_get install --no-install-recommends "$package"
[ ! -e /usr/share/doc/kestrum/older ] || die "The upgrade left a file of the older version."
[ "$(stat -c %a /usr/lib/*/kestrum)" = 755 ] || die "Others cannot get at the program."
expect_start
apt_get purge kestrum
left=$(files)
[ "$left" = "$before" ] || die "The purge left: $left"
say "Installed, upgraded and purged"
