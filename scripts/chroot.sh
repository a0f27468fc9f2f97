#!/usr/bin/env bash
# Usage: scripts/chroot.sh SUITE COMMAND [ARGUMENT ...]
#
# Runs a command in a copy of this tree, with the packages in build, on a bare system of its own, in build/chroot/SUITE:
# what it installs, it has to install by itself. SUITE is a release of Debian's, as bookworm or trixie. The system is made
# anew each time, from an archive that the first run leaves. Needs root.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -ge 2 ] || die "usage: scripts/chroot.sh SUITE COMMAND [ARGUMENT ...]"
[ "$(id -u)" -eq 0 ] || die "Only root can make a system of its own."
install_packages chroot
suite=$1
system=$ROOT/build/chroot/$suite
archive=$system.tar
shift

# From where this machine installs, and by its proxy, if it has one.
mirror() {
    apt-get indextargets --format '$(REPO_URI) $(ORIGIN) $(LABEL)' 'Created-By: Packages' |
        awk '$2 == "Debian" && $3 == "Debian" { print $1; exit }'
}

make_archive() {
    say "Making a bare $suite"
    rm -rf "$system"
    mkdir -p "$system"
    debootstrap --variant=minbase "$suite" "$system" "$(mirror)" >"$system.log" 2>&1 || {
        tail -n 20 "$system.log" >&2
        die "There is no bare $suite; see $system.log"
    }
    apt-config dump | grep '^Acquire::https\?::Proxy' >"$system/etc/apt/apt.conf.d/90proxy" || true
    tar -C "$system" -cf "$archive.part" .
    mv "$archive.part" "$archive"
}

[ -e "$archive" ] || make_archive
rm -rf "$system"
mkdir -p "$system"
tar -C "$system" -xf "$archive"
cp /etc/resolv.conf "$system/etc/resolv.conf"
mkdir "$system/root/kestrum"
cd "$ROOT"
{
    find . -path ./build -prune -o -type f -print0
    find ./build -maxdepth 2 -name '*.deb' -print0
} | tar --null --files-from=- -c | tar -C "$system/root/kestrum" -x --no-same-owner

say "In a bare $suite: $*"
# Its mounts and processes end with the command. The first shell of that system stays, as it takes in the processes that
# others leave behind.
export system
exec unshare --mount --pid --fork --kill-child bash -c '
    mount -t proc proc "$system/proc"
    mount --rbind /dev "$system/dev"
    mount -t tmpfs tmpfs "$system/tmp"
    env -i HOME=/root TERM=dumb LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin CI="${CI:-}" \
        chroot "$system" bash -c '\''cd /root/kestrum && exec "$@"'\'' -- "$@"
    exit $?' -- "$@"
