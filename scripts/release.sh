#!/usr/bin/env bash
# Usage: scripts/release.sh
#
# Makes and proves what is handed out, from the last commit: the Debian package and, with KESTRUM_WINDOWS_SYSROOT, zip
# and setup program for Windows, in build/dist with their SHA256SUMS. Packs all of it twice and holds the two against
# each other, has lintian look at the package, and installs, upgrades and purges it on a bare system. Needs root for
# that last step.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ -z "$(git -C "$ROOT" status --porcelain)" ] || die "There are changes that are not committed."
install_packages release
"$ROOT/scripts/reproduce.sh"
package=("$ROOT"/build/dist/*.deb)
say "Looking at the package"
lintian --pedantic --display-info --fail-on=error,warning,info,pedantic --allow-root "${package[@]}"
"$ROOT/scripts/chroot.sh" bookworm scripts/test-deb.sh "build/dist/$(basename "${package[0]}")"
say "Made and proved, in build/dist:"
ls -l "$ROOT/build/dist"
