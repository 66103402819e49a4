#!/bin/bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds and runs the tests. Arguments are passed on to CTest (-R name, -L e2e, -L check, ...);
# without any, all tests run but not the checks of the source tree, which .ci/run adds.
set -euo pipefail
cd "$(dirname "$0")"
[ $# -gt 0 ] || set -- -LE check

tools/install-packages.sh
cmake --preset dev > /dev/null
cmake --build --preset dev
ctest --test-dir build/dev --output-on-failure --parallel "$(nproc)" "$@"
