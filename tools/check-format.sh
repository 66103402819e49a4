#!/bin/bash
# SPDX-License-Identifier: MIT
# Names the files that clang-format would change; with --fix it changes them. Version 14, since others format otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(--dry-run -Werror --ferror-limit=1)
[ "${1-}" != --fix ] || mode=(-i)
find src tests examples benchmarks tools/zel \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -n 1 -P "$(nproc)" clang-format-14 --style=file "${mode[@]}"
