#!/bin/bash
# SPDX-License-Identifier: MIT
# Compares the symbols that a shared library exports for applications with those in src/Zel.symbols, and fails if one of
# these is gone: a program that was built before would not start, or would do something else.
#
#     tools/check-symbols.sh build/dev/src/libZel.so            # names what is gone or has changed
#     tools/check-symbols.sh build/dev/src/libZel.so --accept   # writes the list anew
set -euo pipefail
export LC_ALL=C
library=$(realpath "$1")
cd "$(dirname "$0")/.."
list=src/Zel.symbols

# Functions and data that are defined in one place. What every program has that needs it, such as instances of templates
# and vtables of classes without functions, differs from compiler to compiler.
exported()
{
    nm --dynamic --defined-only --demangle "$library" |
        sed -nE 's/^[0-9a-f]+ [TDBR] //p' |
        grep -Ev '^(__bss_start|_edata|_end)$| thunk to ' | sort -u
}

if [ "${2-}" = --accept ]; then
    exported > "$list"
    exit
fi
now=$(mktemp)
trap 'rm -f "$now"' EXIT
exported > "$now"
gone=$(comm -23 "$list" "$now")
new=$(comm -13 "$list" "$now")
if [ -n "$gone" ]; then
    while read -r symbol; do
        echo "gone: $symbol"
        name=${symbol%%(*}
        [ "$name" = "$symbol" ] || grep -F -e "$name(" <<< "$new" | sed 's/^/      now: /' || true
    done <<< "$gone"
    cat << END
A program that was built with the last release may need these symbols. If they are to go, raise ZEL_SOVERSION in
CMakeLists.txt, unless that was done since the last release; there is no need to if only their own class could call
them. Then accept what is there now:
    tools/check-symbols.sh build/dev/src/libZel.so --accept
END
    exit 1
fi
echo "$(wc -l < "$list") symbols are there; $(grep -c . <<< "$new" || true) more are not in $list yet (--accept)"
