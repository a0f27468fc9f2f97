#!/usr/bin/env bash
# Usage: scripts/windows/build-sysroot.sh PREFIX
#
# Makes the prefix with the libraries that the Windows build needs: Qt, Crypto++, pugixml, GoogleTest and libcurl,
# cross-built with MinGW-w64 from Debian's own source packages. Takes about an hour and a half on two cores. Work
# goes on in PREFIX.work, step by step: a run that was broken off goes on where it stopped. KESTRUM_WINDOWS_SYSROOT
# then has to name PREFIX.

source "$(dirname "${BASH_SOURCE[0]}")/../common.sh"

[ $# -eq 1 ] || die "usage: scripts/windows/build-sysroot.sh PREFIX"
prefix=$(realpath -m -- "$1")
work=$prefix.work
host=x86_64-w64-mingw32

install_packages build windows sysroot
mkdir -p "$prefix/bin" "$work/tools" "$work/done"

# Both thread models may be installed; every build here is to find the one with std::thread.
for tool in gcc g++; do
    ln -sf "$(command -v "$host-$tool-posix")" "$work/tools/$host-$tool"
done
export PATH=$work/tools:$PATH

# step NAME: runs the function of this name in the work folder, once.
step() {
    [ -e "$work/done/$1" ] && return
    say "$1"
    (cd "$work" && "$1") >"$work/$1.log" 2>&1 || {
        tail -n 40 "$work/$1.log" >&2
        die "$1 failed; see $work/$1.log"
    }
    touch "$work/done/$1"
}

# Source packages come from the places that the machine installs Debian's packages from; the machine's own list of
# them is left alone.
private_apt() {
    apt-get -o "Dir::Etc::SourceList=$work/sources.list" -o Dir::Etc::SourceParts=- \
        -o "Dir::State::Lists=$work/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= \
        -o APT::Sandbox::User= "$@"
}

fetch_list() {
    mkdir -p lists/partial
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(ORIGIN)' 'Created-By: Packages' |
        awk '$4 == "Debian" { print "deb-src", $1, $2, $3 }' | sort -u >sources.list
    test -s sources.list
    private_apt update
}

# unpack PACKAGE: leaves the unpacked source, with Debian's changes, in the folder PACKAGE.
unpack() {
    rm -rf "$1" "$1.download"
    mkdir "$1.download"
    (cd "$1.download" && private_apt source --download-only "$1")
    dpkg-source --no-check -x "$1.download"/*.dsc "$1"
}

# cmake_install SOURCE [OPTION ...]: cross-builds a CMake project into the prefix.
cmake_install() {
    local source=$1
    shift
    cmake -S "$source" -B "$source/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SYSTEM_NAME=Windows \
        -DCMAKE_C_COMPILER="$host-gcc" -DCMAKE_CXX_COMPILER="$host-g++" -DCMAKE_RC_COMPILER="$host-windres" \
        -DCMAKE_FIND_ROOT_PATH="$prefix" -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=NEVER \
        -DCMAKE_FIND_ROOT_PATH_MODE_LIBRARY=ONLY -DCMAKE_FIND_ROOT_PATH_MODE_INCLUDE=ONLY \
        -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    cmake --build "$source/build"
    cmake --install "$source/build"
}

build_pugixml() {
    unpack pugixml
    cmake_install pugixml -DBUILD_SHARED_LIBS=OFF
}

build_googletest() {
    unpack googletest
    cmake_install googletest -DBUILD_SHARED_LIBS=OFF
}

build_curl() {
    unpack curl
    cmake_install curl -DBUILD_SHARED_LIBS=ON -DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF -DCURL_USE_SCHANNEL=ON \
        -DCURL_USE_LIBSSH2=OFF -DCURL_USE_LIBPSL=OFF -DUSE_NGHTTP2=OFF -DUSE_LIBIDN2=OFF -DCURL_ZLIB=OFF \
        -DCURL_BROTLI=OFF -DCURL_ZSTD=OFF -DCURL_DISABLE_LDAP=ON
}

build_cryptopp() {
    unpack libcrypto++
    make -C libcrypto++ -j "$(nproc)" CXX="$host-g++" AR="$host-ar" RANLIB="$host-ranlib" static
    mkdir -p "$prefix/include/crypto++" "$prefix/lib"
    cp libcrypto++/*.h "$prefix/include/crypto++/"
    local library=libcrypto++/libcryptopp.a
    [ -e "$library" ] || library=libcrypto++/libcrypto++.a
    cp "$library" "$prefix/lib/libcrypto++.a"
}

# Debian's tarball lacks the header that tablet events need; the other features that are off are not used.
build_qt() {
    unpack qtbase-opensource-src
    mkdir -p qt-build
    cd qt-build
    ../qtbase-opensource-src/configure -opensource -confirm-license -release -shared -prefix "$prefix" \
        -xplatform win32-g++ -device-option "CROSS_COMPILE=$host-" \
        -no-opengl -no-icu -no-openssl -no-dbus -no-pch \
        -qt-zlib -qt-libpng -qt-pcre -qt-harfbuzz -qt-freetype \
        -no-feature-tabletevent -no-feature-direct2d -no-feature-sql -no-feature-printer \
        -nomake examples -nomake tests
    make -j "$(nproc)"
    make install
}

copy_runtime() {
    local library
    for library in libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll; do
        cp "$("$host-g++" -print-file-name="$library")" "$prefix/bin/"
    done
}

step fetch_list
step copy_runtime
step build_pugixml
step build_googletest
step build_curl
step build_cryptopp
step build_qt
say "The libraries for Windows are in $prefix"
