# SPDX-License-Identifier: MIT
zel_test(Inspector/Properties/tst_ZelInspectorAttributedStringProperty zel_inspector)
target_compile_definitions(tst_ZelInspectorAttributedStringProperty PRIVATE ZEL_DOCS="${PROJECT_SOURCE_DIR}/docs")
