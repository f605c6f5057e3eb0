#!/usr/bin/env bash
# Builds Qt 5.15 and Qwt for Windows with MinGW-w64, from Debian's own source packages, into a
# cache folder outside the checkout, and prints the two folders made, separated by ";". What is there
# already is kept.
#   KLV_CACHE    the cache folder, instead of klv in the user's cache folder
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
keyring=/usr/share/keyrings/debian-archive-keyring.gpg

triplet=x86_64-w64-mingw32
# The POSIX thread variant: Qt Test needs std::mutex.
cxx=$triplet-g++-posix
cc=$triplet-gcc-posix

options=(
    -xplatform win32-g++ -device-option CROSS_COMPILE=$triplet-
    -opensource -confirm-license -release -shared -nomake examples -nomake tests -no-pch
    -no-opengl -no-openssl -no-icu -qt-zlib -qt-pcre -qt-libpng -qt-libjpeg -qt-freetype -qt-harfbuzz
    # The source package lacks the tablet's header; Direct2D needs OpenGL.
    -no-feature-tabletevent -no-feature-direct2d
    -no-feature-sql -no-feature-dbus -no-feature-printer
)
libraries=(corelib gui widgets xml testlib winmain platformsupport)
plugins=(platforms/windows platforms/offscreen styles)

version_of() { apt-cache policy "$1" | sed -n 's/^ *Candidate: *//p'; }
key_of() { printf '%s\n' "$@" | sha256sum | cut -c1-12; }

qt_version=$(version_of qtbase5-dev)
qwt_version=$(version_of libqwt-qt5-dev)
cache=${KLV_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/klv}
qt=$cache/qt-windows-$(key_of "$qt_version" "$($cxx -dumpfullversion)" \
    "${options[@]}" "${libraries[@]}" "${plugins[@]}")
qwt=$cache/qwt-windows-$(key_of "$qwt_version" "$qt")

exec 3>&1 1>&2
mkdir -p "$cache"
work=$(mktemp -d "$cache/build.XXXXXX")
finish() {
    local status=$?
    ((status == 0)) || tail -n 60 "$work"/*.log || true
    rm -rf "$work"
}
trap finish EXIT

# fetch PACKAGE VERSION: unpacks a source package. The configured Debian sources once more, as
# sources of source packages, in a configuration of this script's own: the machine's is not changed.
fetch() {
    local apt=$work/apt line
    if [[ ! -d $apt ]]; then
        mkdir -p "$apt"/{lists/partial,cache/archives/partial}
        apt-get indextargets --format '$(ORIGIN)|$(REPO_URI) $(RELEASE) $(COMPONENT)' \
            'Created-By: Packages' | sort -u | while IFS='|' read -r origin line; do
            [[ $origin != Debian ]] || echo "deb-src [signed-by=$keyring] $line"
        done >"$apt/sources.list"
        cat >"$apt/apt.conf" <<CONF
Dir::Etc::SourceList "$apt/sources.list";
Dir::Etc::SourceParts "/dev/null";
Dir::State::Lists "$apt/lists";
Dir::Cache "$apt/cache";
APT::Sandbox::User "root";
CONF
        APT_CONFIG=$apt/apt.conf apt-get update -q
    fi
    (cd "$work" && APT_CONFIG=$apt/apt.conf apt-get source -q "$1=$2")
}

# qmake's mkspec names the compilers without their thread variant.
put_compilers_first() {
    mkdir "$work/bin"
    ln -s "$(command -v $cxx)" "$work/bin/$triplet-g++"
    ln -s "$(command -v $cc)" "$work/bin/$triplet-gcc"
    PATH=$work/bin:$PATH
}

build_qt() {
    fetch qtbase-opensource-src "$qt_version"
    put_compilers_first
    mkdir "$work/qt"
    cd "$work/qt"
    "$work"/qtbase-opensource-src-*/configure -prefix "$qt" "${options[@]}"
    make sub-src-qmake_all
    (cd src && make -j"$(nproc)" "${libraries[@]/#/sub-}")
    (cd src && make $(printf 'sub-%s-install_subtargets ' "${libraries[@]}"))
    local plugin
    for plugin in "${plugins[@]}"; do
        (cd "src/plugins/$plugin" && make -j"$(nproc)" && make install)
    done
    # CMake's package files ask for them.
    for tool in qmake moc rcc uic; do install -D "bin/$tool" "$qt/bin/$tool"; done
    mkdir -p "$qt/mkspecs"
    cp -r "$work"/qtbase-opensource-src-*/mkspecs/{common,win32-g++} "$qt/mkspecs"
}

# A static library of what plots need: no designer plugin, SVG, OpenGL, printing or threads.
build_qwt() {
    fetch qwt "$qwt_version"
    cd "$work"/qwt-*/src
    sed -i '/qtconcurrentrun.h/d' qwt_point_mapper.cpp
    cat >CMakeLists.txt <<'CMAKE'
cmake_minimum_required(VERSION 3.25)
project(qwt CXX)
set(CMAKE_AUTOMOC ON)
find_package(Qt5 REQUIRED COMPONENTS Widgets)
file(GLOB sources *.cpp)
list(FILTER sources EXCLUDE REGEX "svg|gl|renderer|opengl|raster|spectro|spectrogram")
file(GLOB headers *.h)
add_library(qwt STATIC ${sources})
target_compile_definitions(qwt PRIVATE QWT_NO_SVG QWT_NO_OPENGL QT_NO_QFUTURE QT_NO_PRINTER)
target_compile_options(qwt PRIVATE -w)
target_link_libraries(qwt PUBLIC Qt5::Widgets)
install(TARGETS qwt DESTINATION lib)
install(FILES ${headers} DESTINATION include/qwt)
CMAKE
    KLV_QT_WINDOWS=$qt cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/windows.cmake" -DCMAKE_INSTALL_PREFIX="$qwt"
    cmake --build build
    cmake --install build
}

# make_once NAME FOLDER: builds what is not there yet; an interrupted build does not count.
make_once() {
    [[ ! -e $2/complete ]] || return 0
    echo "Building $1 for Windows; this takes a while"
    rm -rf "$2"
    ("build_$1") >"$work/$1.log" 2>&1
    touch "$2/complete"
}
make_once qt "$qt"
make_once qwt "$qwt"
echo "$qt;$qwt" >&3
