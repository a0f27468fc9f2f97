#!/usr/bin/env bash
# Usage: scripts/reproduce.sh
#
# Packs the last commit twice, in different folders and, for root, as different users, and fails where the two differ in
# a byte. What it packed is then in build/dist, with a list of the SHA-256 values. With KESTRUM_WINDOWS_SYSROOT the
# Windows files are among it.

source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

dist=$ROOT/build/dist
scratch=$(mktemp -d)
second=second-with-a-longer-name
chmod 755 "$scratch"
trap 'rm -rf "$scratch"' EXIT
# The second user may not install anything.
install_packages build package windows

# pack FOLDER [COMMAND ...]: packs the last commit in FOLDER, by way of the command.
pack() {
    local folder=$scratch/$1
    shift
    git clone -q "$ROOT" "$folder"
    if [ $# -gt 0 ]; then chown -R nobody: "$folder"; fi
    (
        cd "$folder"
        export HOME=$folder
        "$@" scripts/package-deb.sh
        [ -z "${KESTRUM_WINDOWS_SYSROOT:-}" ] || "$@" scripts/windows/package.sh
    )
}

# The packed files of a folder, by their names.
packed() { find "$scratch/$1/build" -maxdepth 1 \( -name '*.deb' -o -name '*.zip' -o -name '*.exe' \) -printf '%f\n' | sort; }

as_other_user=()
[ "$(id -u)" -ne 0 ] || as_other_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
pack first
pack "$second" "${as_other_user[@]}"

rm -rf "$dist"
mkdir -p "$dist"
[ "$(packed first)" = "$(packed "$second")" ] || die "The two packed different files."
packed first | while read -r name; do
    cmp "$scratch/first/build/$name" "$scratch/$second/build/$name" || die "$name is not the same twice."
    cp "$scratch/first/build/$name" "$dist/"
done
(cd "$dist" && sha256sum -- * >SHA256SUMS)
say "The same twice, in build/dist:"
cat "$dist/SHA256SUMS"
