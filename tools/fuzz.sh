#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with clang in build/fuzz and runs each for so many seconds (30). Fails on a crash, a hang of five
# seconds, a leak or too much memory; the input that did it is then in build/fuzz/findings.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-30}
build=build/fuzz
export QT_QPA_PLATFORM=offscreen
export LSAN_OPTIONS="suppressions=$PWD/tests/leaks.supp:print_suppressions=0"

cmake --preset fuzz > /dev/null
cmake --build --preset fuzz --target fuzz_description fuzz_generator
mkdir -p "$build/findings"

for target in description generator; do
    mkdir -p "$build/$target"
    "$build/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -max_len=4096 \
        -dict=tests/fuzz/description.dict -artifact_prefix="$build/findings/$target-" -print_final_stats=1 \
        "$build/$target" "tests/fuzz/$target-corpus"
done
