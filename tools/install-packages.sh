#!/bin/bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that are missing: those of the build and the tests, with "checks" also those of .ci/run,
# with "docs" those of docs.sh.
# Does nothing, and needs no rights, when all are there.
set -euo pipefail

# Package           What for
build='
g++                 the compiler
cmake               configures; CTest runs the tests
ninja-build         builds
ccache              a second build of unchanged sources takes seconds
qt6-base-dev        Core, Gui, Widgets, Concurrent, Test; brings moc, rcc and the xcb and offscreen platforms
qt6-tools-dev       the CMake functions for translations
libexpat1-dev       reads XML
libmuparser-dev     calculates what is typed into number fields
qt6-l10n-tools      lrelease and lupdate
libgl-dev           the headers that the CMake files of Qt Gui look for
fonts-dejavu-core   a font for programs without a display
xvfb                a display for the end-to-end tests
xauth               xvfb-run calls it
python3             runs the include check
libxml2-utils       xmllint compares the descriptions with their schema
'
checks='
clang               compiles the fuzz targets
libclang-rt-14-dev  the fuzzer and sanitizer runtimes for them
clang-format-14     the format check
clang-tidy-14       the check of changed lines
jing                compares the descriptions with their schema once more
lintian             looks at the Debian packages
'
docs='
doxygen             builds the reference
'

if ! command -v dpkg-query > /dev/null; then
    echo "Not a Debian system: please see to the packages that ${0##*/} names by hand." >&2
    exit 0
fi

case "${1-}" in
checks) wanted=$build$checks$docs ;;
docs) wanted=$docs ;;
*) wanted=$build ;;
esac

missing=()
while read -r package _; do
    [ -n "$package" ] || continue
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2> /dev/null)" = installed ] || missing+=("$package")
done <<< "$wanted"
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing ${missing[*]}"
asRoot=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo > /dev/null; then
        echo "Neither root nor sudo: please install them with: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    asRoot=(sudo)
fi
"${asRoot[@]}" apt-get -qq update
"${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -o Dpkg::Use-Pty=0 install --no-install-recommends "${missing[@]}" > /dev/null
