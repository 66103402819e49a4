#!/bin/bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds, and opens the example application; arguments are passed on to it (try --help).
set -euo pipefail
root=$(cd "$(dirname "$0")" && pwd)

"$root/tools/install-packages.sh"
(
    cd "$root"
    cmake --preset release > /dev/null
    cmake --build --preset release --target zel_shapes
) >&2
exec "$root/build/release/examples/shapes/zel_shapes" "$@"
