#!/bin/bash
# SPDX-License-Identifier: MIT
# Compiles the changed headers, each alone: those that differ from main or, on main itself, from the commit before. The
# argument is a configured build tree of Ninja's. All headers: cmake --build build/dev --target zel_headers.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

mapfile -t headers < <(tools/changed-files.sh 'src/*.h' 60 | sed -n '1d; s,^src/,,p')
objects=$(ninja -C "$build" -t targets all | sed -n 's,^\(.*zel_headers\.dir.*\.h\.cpp\.o\): .*,\1,p')
mapfile -t wanted < <(grep -F -f <(printf '/%s.cpp.o\n' "${headers[@]}") <<< "$objects" || true)
echo "${#wanted[@]} headers differ"
[ ${#wanted[@]} -eq 0 ] || cmake --build "$build" --target "${wanted[@]}"
