#!/bin/bash
# SPDX-License-Identifier: MIT
# Prints the commit from which this tree differs, then the files that match a pattern and differ from it. The
# commit is where the branch left main or, on main itself, the one before. At most so many files are named, so that a
# change of everything does not take the day.
#
#     tools/changed-files.sh '*.h' 20
set -euo pipefail
cd "$(dirname "$0")/.."
pattern=$1
mostFiles=$2

base=$(git merge-base main HEAD 2> /dev/null || git merge-base origin/main HEAD 2> /dev/null || true)
if [ -z "$base" ] || [ "$base" = "$(git rev-parse HEAD)" ]; then
    base=HEAD~1
fi
echo "$base"
mapfile -t files < <(git diff -M --diff-filter=d --name-only "$base" -- "$pattern")
if [ ${#files[@]} -gt "$mostFiles" ]; then
    echo "${#files[@]} files differ from $base; looking at $mostFiles of them" >&2
fi
[ ${#files[@]} -eq 0 ] || printf '%s\n' "${files[@]:0:$mostFiles}"
