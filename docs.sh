#!/bin/bash
# SPDX-License-Identifier: MIT
# Builds the reference of the public headers in build/docs/html. Fails on a comment that Doxygen complains about.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-packages.sh docs
mkdir -p build
doxygen docs/Doxyfile
echo "$PWD/build/docs/html/index.html"
