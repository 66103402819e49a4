#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with clang in build/fuzz and runs each for so many seconds (60). Fails on a crash, a hang of five
# seconds, a leak or too much memory; the input that did it is then in build/fuzz/findings.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-60}
build=build/fuzz

cmake --preset fuzz > /dev/null
cmake --build --preset fuzz --target fuzz_description

mkdir -p "$build/corpus" "$build/findings"
QT_QPA_PLATFORM=offscreen "$build/tests/fuzz/fuzz_description" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
    -max_len=4096 -dict=tests/fuzz/description.dict -artifact_prefix="$build/findings/" -print_final_stats=1 \
    "$build/corpus" tests/fuzz/corpus
