#!/bin/bash
# SPDX-License-Identifier: MIT
# Makes the Debian packages of a build tree, lets lintian look at them, installs them, builds and tries the smallest
# example with them as an application does, and removes them again.
#
#     tools/check-packages.sh build/dev            # on a copy of this system, which has all that they depend on
#     tools/check-packages.sh build/release --bare # on a new system, which has only what they say they depend on; this
#                                                  # is how a release is made, with the reference in zel-doc
#
# The packages are left in the tree's folder packages. Nothing of this system is changed. Exits with 77, "skipped", if
# it cannot mount the copy or fetch the new system.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "$1")
kind=${2---copy}
packages=$build/packages
suite=bookworm

skip()
{
    echo "skipped: $*" >&2
    exit 77
}

# Tells how long a step took, too.
step()
{
    echo "== $* (after ${SECONDS} s)"
}

# Runs a command on the system under test.
on()
{
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

makePackages()
{
    rm -rf "$packages"
    local reference=()
    if [ "$kind" = --bare ]; then
        ./docs.sh
        reference=(-D CPACK_ZEL_REFERENCE="$PWD/build/docs/html")
    fi
    (umask 022 && cd "$build" && cpack -G DEB "${reference[@]}" &> packages.log) ||
        { cat "$build/packages.log" && exit 1; }
    lintian --allow-root --fail-on error "$packages"/*.deb
}

# The system is a layer in memory above this one, or above a new one that is kept in the build tree.
mountSystem()
{
    local below=/ memory=$build/packages-root
    if [ "$kind" = --bare ]; then
        below=$build/packages-bare
        if [ ! -e "$below/etc/debian_version" ]; then
            mmdebstrap --quiet --variant=apt --include=g++,cmake,ninja-build "$suite" "$below.new" ||
                skip "the new system cannot be fetched"
            mv "$below.new" "$below"
        fi
    fi
    mkdir -p "$memory"
    mount -t tmpfs zel "$memory" || skip "nothing can be mounted here"
    mkdir "$memory"/{upper,work,root}
    mount -t overlay zel -o "lowerdir=$below,upperdir=$memory/upper,workdir=$memory/work" "$memory/root" ||
        skip "no layer can be mounted here"
    root=$memory/root
    upper=$memory/upper
    for folder in dev proc sys; do
        mount --rbind "/$folder" "$root/$folder"
    done
    mkdir "$root/packages"
    cp "$packages"/*.deb "$root/packages"
    if [ "$kind" = --bare ]; then
        cp /etc/resolv.conf "$root/etc"
        on apt-get -qq update || skip "the new system cannot be fetched"
    fi
}

install()
{
    if [ "$kind" = --bare ]; then
        on apt-get -qq install --no-install-recommends "${@/#//packages/}" > "$build/packages.log"
    else
        on dpkg --install "${@/#//packages/}" > "$build/packages.log"
    fi || { cat "$build/packages.log" && exit 1; }
}

configure()
{
    on cmake -S /tmp/smallest -B /tmp/smallest/build -G Ninja 2>&1
}

compile()
{
    on cmake --build /tmp/smallest/build 2>&1
}

# Without the program zel an application can be built, and is told what it misses. With it, descriptions are checked.
tryExample()
{
    (cd "$packages" && echo libzel[0-9]*.deb libzel-dev_*.deb zel-doc_*.deb zel-tools_*.deb) > "$build/packages.txt"
    local files
    read -ra files < "$build/packages.txt"
    install "${files[@]:0:3}"
    on cp -r /usr/share/doc/zel-doc/examples/smallest /tmp/smallest
    configure | grep "descriptions are not checked" || { echo "configuring does not say that zel-tools is missing" && exit 1; }
    install "${files[3]}"
    configure > /dev/null
    compile
    on readelf -d /tmp/smallest/build/zel_example_smallest | grep -E "NEEDED.*libZel"
    local status=0
    on env QT_QPA_PLATFORM=offscreen timeout 3 /tmp/smallest/build/zel_example_smallest || status=$?
    [ "$status" -eq 124 ] || { echo "the example ended with $status instead of showing its window" && exit 1; }

    sed -i 's/keyPath="name"/keyPath="nmae"/' "$root/tmp/smallest/Smallest.xml"
    if compile > "$build/packages.log" ||
        ! grep -E '^/tmp/smallest/Smallest.xml:[0-9]+:[0-9]+: error: .*"nmae"' "$build/packages.log"; then
        cat "$build/packages.log"
        echo "a mistake in the description does not end the build as it should"
        exit 1
    fi
}

# What the packages brought is gone when they are, as is all that has their name.
removePackages()
{
    local names path left=0
    mapfile -t names < <(for file in "$packages"/*.deb; do dpkg-deb --field "$file" Package; done)
    on dpkg --listfiles "${names[@]}" | sort -u > "$build/packages.txt"
    on dpkg --purge "${names[@]}" > "$build/packages.log"
    while read -r path; do
        if [ -n "$path" ] && { [ -e "$root$path" ] || [ -L "$root$path" ]; } && ! on dpkg --search "$path" &> /dev/null; then
            echo "left: $path"
            left=1
        fi
    done < "$build/packages.txt"
    if find "$upper" -path "$upper/packages" -prune -o -path "$upper/tmp" -prune -o -iname '*zel*' ! -type c -print |
        grep . ; then
        left=1
    fi
    [ "$left" -eq 0 ]
}

if [ "${3-}" != inside ]; then
    [ "$(id -u)" -eq 0 ] && unshare --mount true 2> /dev/null || skip "only root can mount the system for the packages"
    exec unshare --mount "tools/check-packages.sh" "$1" "$kind" inside
fi
step making the packages
makePackages
step mounting the system
mountSystem
step building the example
tryExample
step removing the packages
removePackages
step done
