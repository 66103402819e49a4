# SPDX-License-Identifier: MIT
zel_e2e_test(EndToEnd/tst_Editing zel_inspector)
zel_e2e_test(EndToEnd/tst_Looks zel_inspector)
zel_e2e_test(EndToEnd/tst_ColorEditors zel_inspector)
zel_e2e_test(EndToEnd/tst_Selections zel_inspector)
zel_e2e_test(EndToEnd/tst_ValueEditors zel_inspector)
zel_test(EndToEnd/tst_Lifetimes zel_inspector)
zel_e2e_test(EndToEnd/tst_TextEditors zel_inspector)
target_compile_definitions(tst_TextEditors PRIVATE ZEL_DOCS="${PROJECT_SOURCE_DIR}/docs")
