# SPDX-License-Identifier: MIT
# The code that the documents show and no example has: tools/check-docs-code.py compares them.
set(tests)
zel_test(Documents/tst_Documents zel_inspector)
target_compile_definitions(tst_Documents PRIVATE SOURCE_DIR="${PROJECT_SOURCE_DIR}/examples/shapes")
