#!/bin/bash
# SPDX-License-Identifier: MIT
# Compares what a shared library has for applications with the list src/Zel.symbols, and fails if something of the list
# is gone or has changed: a program that was built before would not start, or would do something else. The list has the
# exported symbols, the sizes of tables of virtual functions, and those of the objects of public classes.
#
#     tools/check-symbols.sh build/dev            # names what is gone or has changed
#     tools/check-symbols.sh build/dev --accept   # writes the list anew
set -euo pipefail
export LC_ALL=C
build=$(realpath "$1")
library=$build/src/libZel.so
cd "$(dirname "$0")/.."
list=src/Zel.symbols

# Functions and data that are defined in one place. What every program has that needs it, such as instances of templates
# and vtables of classes without functions, differs from compiler to compiler.
symbols()
{
    nm --dynamic --defined-only --demangle "$library" |
        sed -nE 's/^[0-9a-f]+ [TDBR] //p' |
        grep -Ev '^(__bss_start|_edata|_end)$| thunk to '
}

# Tables of virtual functions of public classes.
tables()
{
    local size name
    nm --dynamic --defined-only --demangle --print-size "$library" |
        sed -nE 's/^[0-9a-f]+ ([0-9a-f]+) [VDR] vtable for ([A-Za-z0-9]+)$/\1 \2/p' |
        while read -r size name; do
            if grep -q "^object of $name," "$work/sizes"; then
                echo "vtable for $name, $((16#$size)) bytes"
            fi
        done
}

# An optimized library leaves out the tables of interfaces that nothing in it uses.
withoutTablesThatAreLeftOut()
{
    local line name
    while read -r line; do
        name=$(sed -nE 's/^vtable for ([^,]+),.*/\1/p' <<< "$line")
        if [ -z "$name" ] || grep -q "^vtable for $name," "$work/now" || ! grep -q "^object of $name," "$work/now"; then
            echo "$line"
        fi
    done
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --build "$build" --target zel_sizes > "$work/sizes.log" || { cat "$work/sizes.log" && exit 1; }
"$build/zel_sizes" > "$work/sizes"
{ symbols && tables && cat "$work/sizes"; } | sort -u > "$work/now"
if [ "${2-}" = --accept ]; then
    cp "$work/now" "$list"
    exit
fi
gone=$(comm -23 "$list" "$work/now" | withoutTablesThatAreLeftOut)
new=$(comm -13 "$list" "$work/now")
if [ -n "$gone" ]; then
    while read -r symbol; do
        echo "gone: $symbol"
        name=${symbol%%[(,]*}
        [ "$name" = "$symbol" ] || grep -F -e "$name(" -e "$name," <<< "$new" | sed 's/^/      now: /' || true
    done <<< "$gone"
    if [ -z "$(git tag --list 'v*')" ]; then
        echo "No release is tagged here, so no program may need it yet: accept what is there now."
    else
        echo "A program that was built with the last release may need it. If it is to go or to change, raise"
        echo "ZEL_SOVERSION in CMakeLists.txt, unless that was done since the last release; there is no need to if only"
        echo "their own class could call it. Then accept what is there now:"
    fi
    echo "    tools/check-symbols.sh ${build#"$PWD/"} --accept"
    exit 1
fi
echo "$(wc -l < "$list") symbols and sizes are there; $(grep -c . <<< "$new" || true) more are not in $list yet (--accept)"
