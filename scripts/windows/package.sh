#!/usr/bin/env bash
# Usage: scripts/windows/package.sh
#
# Builds the program for 64-bit Windows and packs build/Kestrum-<version>-win64.zip: the program, its translations,
# its libraries and plug-ins, the licences and an SPDX list of what is shipped and a short readme. Beside it comes
# build/Kestrum-<version>-win64-setup.exe, which installs the same files. KESTRUM_WINDOWS_SYSROOT names the libraries.

source "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages build qt5 windows
require_sysroot
set_source_date
build windows

name=Kestrum-$(project_version)-win64
stage=$ROOT/build/$name
rm -rf "$stage" "$stage.zip" "$stage-setup.exe"
mkdir -p "$stage"/{platforms,styles,imageformats,licences}

# The names of the libraries that the given programs ask for and that the prefix has, with theirs in turn.
shipped_libraries() {
    local pending=("$@") seen=" " file library
    while [ ${#pending[@]} -gt 0 ]; do
        file=${pending[0]}
        pending=("${pending[@]:1}")
        while read -r library; do
            [ -e "$KESTRUM_WINDOWS_SYSROOT/bin/$library" ] || continue
            [[ $seen != *" $library "* ]] || continue
            seen+="$library "
            printf '%s\n' "$library"
            pending+=("$KESTRUM_WINDOWS_SYSROOT/bin/$library")
        done < <(x86_64-w64-mingw32-objdump -p "$file" | sed -n 's/^\tDLL Name: //p')
    done
}

# licence NAME PACKAGE: what Debian says about the sources that NAME was built from.
licence() { cp "/usr/share/doc/$2/copyright" "$stage/licences/$1.txt"; }

cp "$ROOT/build/windows/kestrum.exe" "$ROOT/build/windows/QxShellHelper.dll" "$stage/"
cp -r "$ROOT/build/windows/languages" "$stage/"
# Loaded by name at the first need, so no program asks for it.
cp "$KESTRUM_WINDOWS_SYSROOT/bin/libcurl.dll" "$stage/"
cp "$KESTRUM_WINDOWS_SYSROOT/plugins/platforms/qwindows.dll" "$stage/platforms/"
cp "$KESTRUM_WINDOWS_SYSROOT/plugins/styles/qwindowsvistastyle.dll" "$stage/styles/"
cp "$KESTRUM_WINDOWS_SYSROOT/plugins/imageformats/qico.dll" "$stage/imageformats/"
for library in $(shipped_libraries "$stage"/*.exe "$stage"/*.dll "$stage"/*/*.dll); do
    cp "$KESTRUM_WINDOWS_SYSROOT/bin/$library" "$stage/"
done
find "$stage" \( -name '*.exe' -o -name '*.dll' \) -exec x86_64-w64-mingw32-strip --strip-unneeded {} +

cp "$ROOT/LICENSE" "$stage/licences/Kestrum.txt"
licence Qt qtbase5-dev
licence "Crypto++" libcrypto++-dev
licence pugixml libpugixml-dev
licence curl libcurl4
licence GCC-runtime gcc-mingw-w64-x86-64-posix-runtime
licence MinGW-w64 mingw-w64-x86-64-dev
for text in GPL-2 GPL-3 LGPL-2.1 LGPL-3; do
    cp "/usr/share/common-licenses/$text" "$stage/licences/$text.txt"
done
sed "s/@VERSION@/$(project_version)/; s/\$/\r/" "$ROOT/resources/windows/readme.txt" >"$stage/readme.txt"

"$ROOT/scripts/windows/spdx.sh" "$(project_version)" >"$stage/licences/spdx.txt"
find "$stage" -exec touch --date="@$SOURCE_DATE_EPOCH" {} +

# The zip takes files in the order that it is told.
(cd "$ROOT/build" && find "$name" | sort | zip -q -X -@ "$name.zip")

# Writes what the setup program does to each file and each folder, and to the folders in the end.
setup_lists() {
    local folder file
    (cd "$stage" && find . -type d -printf '%P\n' | sort) | while read -r folder; do
        printf 'SetOutPath "$INSTDIR\\%s"\n' "${folder//\//\\}" >>"$1/install.nsh"
        (cd "$stage" && find "./$folder" -maxdepth 1 -type f -printf '%f\n' | sort) | while read -r file; do
            printf 'File "%s"\n' "$stage/$folder/$file" >>"$1/install.nsh"
            printf 'Delete "$INSTDIR\\%s%s"\n' "${folder:+${folder//\//\\}\\}" "$file" >>"$1/remove.nsh"
        done
    done
    (cd "$stage" && find . -mindepth 1 -type d -printf '%P\n' | sort -r) |
        sed 's|/|\\|g; s|.*|RMDir "$INSTDIR\\&"|' >>"$1/remove.nsh"
}

lists=$(mktemp -d)
trap 'rm -rf "$lists"' EXIT
setup_lists "$lists"
makensis -V2 -WX -INPUTCHARSET UTF8 -DVERSION="$(project_version)" -DSTAGE="$stage" -DLISTS="$lists" \
    -DSIZE="$(du --apparent-size -sk "$stage" | cut -f 1)" -DOUTPUT="$stage-setup.exe" \
    "$ROOT/resources/windows/setup.nsi" >&2
rm -rf "$stage"
printf '%s\n' "$stage-setup.exe" "$stage.zip"
