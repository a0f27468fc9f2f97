#!/usr/bin/env bash
# Usage: scripts/windows/spdx.sh VERSION
#
# Writes what the Windows program consists of, as an SPDX document: each part with its version and its licence. The
# versions are read from the headers and the libraries that are shipped. SOURCE_DATE_EPOCH says of when it is.

source "$(dirname "${BASH_SOURCE[0]}")/../common.sh"

version=$1
include=$KESTRUM_WINDOWS_SYSROOT/include

# value FILE NAME: what the header defines the name as, without quotes.
value() { sed -n "s/^[# \t]*define[ \t]\+$2[ \t]\+\"\?\([^\" \t]*\).*/\1/p" "$include/$1"; }
# found LIBRARY EXPRESSION: the version that stands in the library as the expression says.
found() { LC_ALL=C grep -a -o "$2" "$KESTRUM_WINDOWS_SYSROOT/bin/$1" | head -n 1 | grep -o '[0-9][0-9.]*' | head -n 1; }

qt=$(value QtCore/qconfig.h QT_VERSION_STR)
crypto=$(value crypto++/config_ver.h CRYPTOPP_MAJOR).$(value crypto++/config_ver.h CRYPTOPP_MINOR).$(value crypto++/config_ver.h CRYPTOPP_REVISION)
pugi=$(value pugixml.hpp PUGIXML_VERSION)
mingw=$(x86_64-w64-mingw32-g++-posix -dM -E -include _mingw.h -x c /dev/null |
    awk '$2 ~ /^__MINGW64_VERSION_(MAJOR|MINOR|BUGFIX)$/ { part[$2] = $3 }
        END { print part["__MINGW64_VERSION_MAJOR"] "." part["__MINGW64_VERSION_MINOR"] "." part["__MINGW64_VERSION_BUGFIX"] }')

# A line each: name, version, licence, and for a part of another one its name.
parts="Kestrum|$version|MIT|
Qt|$qt|LGPL-3.0-only|Kestrum
zlib|$(found Qt5Core.dll 'deflate [0-9.]* Copyright')|Zlib|Qt
PCRE2|$(found Qt5Core.dll '10\.[0-9]* 20[0-9][0-9]-')|BSD-3-Clause|Qt
libpng|$(found Qt5Gui.dll 'libpng version [0-9.]*')|libpng-2.0|Qt
HarfBuzz||MIT|Qt
FreeType||FTL|Qt
Crypto++|$crypto|BSL-1.0|Kestrum
pugixml|$((pugi / 1000)).$((pugi / 10 % 100))|MIT|Kestrum
curl|$(value curl/curlver.h LIBCURL_VERSION)|curl|Kestrum
GCC runtime|$(x86_64-w64-mingw32-g++-posix -dumpversion | cut -d- -f1)|GPL-3.0-or-later WITH GCC-exception-3.1|Kestrum
MinGW-w64 runtime|$mingw|ZPL-2.1 AND MIT|Kestrum"

id() { printf 'SPDXRef-%s' "$(printf '%s' "$1" | tr -c 'A-Za-z0-9.\n' '-')"; }

cat <<END
SPDXVersion: SPDX-2.3
DataLicense: CC0-1.0
SPDXID: SPDXRef-DOCUMENT
DocumentName: Kestrum-$version-win64
DocumentNamespace: https://kestrum.quillon.example/spdx/Kestrum-$version-win64-$SOURCE_DATE_EPOCH
Creator: Organization: The Kestrum authors
Created: $(date -u --date="@$SOURCE_DATE_EPOCH" +%Y-%m-%dT%H:%M:%SZ)
Relationship: SPDXRef-DOCUMENT DESCRIBES $(id Kestrum)
END
while IFS='|' read -r name number licence whole; do
    printf '\nPackageName: %s\nSPDXID: %s\n' "$name" "$(id "$name")"
    [ -z "$number" ] || printf 'PackageVersion: %s\n' "$number"
    printf 'PackageDownloadLocation: NOASSERTION\nFilesAnalyzed: false\nPackageLicenseConcluded: %s\n' "$licence"
    printf 'PackageLicenseDeclared: %s\nPackageCopyrightText: NOASSERTION\n' "$licence"
    [ -z "$whole" ] || printf 'Relationship: %s CONTAINS %s\n' "$(id "$whole")" "$(id "$name")"
done <<<"$parts"
