# SPDX-License-Identifier: MIT
foreach(test tst_Dragging tst_Editing tst_Help tst_ItemModels tst_Lifetimes tst_Looks tst_Numbers tst_PropertyTypes
             tst_Refusals tst_Rows tst_RowsInSight tst_Search tst_Selections tst_SeveralValues tst_TextEditors tst_ValueEditors)
    zel_e2e_test(EndToEnd/${test} zel_inspector)
    target_compile_definitions(${test} PRIVATE ZEL_DOCS="${PROJECT_SOURCE_DIR}/docs")
endforeach()
