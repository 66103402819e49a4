#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs clang-tidy and says what it finds in changed lines of sources: those that differ from main or, on main itself,
# from the commit before. The argument is a configured build tree. It also finds what compiles only because the
# precompiled header brings a declaration along, as clang cannot read that.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
mapfile -t changed < <(tools/changed-files.sh '*.cpp' 20) # about ten seconds each
base=${changed[0]}
known=$(sed -n "s,.*\"file\": \"$PWD/\(.*\)\".*,\1,p" "$build/compile_commands.json")
mapfile -t files < <(comm -12 <(printf '%s\n' "${changed[@]:1}" | sort -u) <(sort -u <<< "$known"))
if [ ${#files[@]} -eq 0 ]; then
    echo "No source that is built differs from $base"
    exit
fi

mkdir -p "$build/tidy"
sed -e 's/ -Winvalid-pch//; s/ -include [^ ]*cmake_pch[^ ]*//' "$build/compile_commands.json" \
    > "$build/tidy/compile_commands.json"
git diff -M -U0 "$base" -- "${files[@]}" |
    clang-tidy-diff-14.py -p1 -path "$build/tidy" -j "$(nproc)" -quiet -extra-arg=-Wno-unknown-warning-option \
        > "$build/tidy/found.txt" 2>&1
if grep -A 3 -E '(warning|error):' "$build/tidy/found.txt"; then
    exit 1
fi
echo "Nothing to say about the changed lines of ${#files[@]} files"
