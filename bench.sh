#!/bin/bash
# SPDX-License-Identifier: MIT
# Builds in release mode and prints how the library compares with plain Qt code; a full run also writes
# build/bench/ratios.tsv. Arguments are passed on: parts of names, or --list. Fails if a goal is missed.
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)

"$root/tools/install-packages.sh"
(
    cd "$root"
    cmake --preset release > /dev/null
    cmake --build --preset release --target zel_bench
) >&2
exec "$root/build/release/benchmarks/zel_bench" "$@"
