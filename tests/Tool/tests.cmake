# SPDX-License-Identifier: MIT
# The program zel is tested as its users call it. The classes are those of the test, as moc describes them.
set(tests)
if(ZEL_BUILD_TOOL)
    zel_test(Tool/tst_Zel)
    qt6_extract_metatypes(tst_Zel)
    get_target_property(metatypes tst_Zel INTERFACE_QT_META_TYPES_BUILD_FILE)
    target_sources(tst_Zel PRIVATE Tool/Models.h)
    target_compile_definitions(tst_Zel PRIVATE ZEL_PROGRAM="$<TARGET_FILE:zel>" ZEL_METATYPES="${metatypes}"
                               ZEL_SOURCES="${PROJECT_SOURCE_DIR}")
    add_dependencies(tst_Zel zel)
    zel_test(Tool/tst_Preview zel_preview)
    qt6_extract_metatypes(tst_Preview)
    get_target_property(metatypes tst_Preview INTERFACE_QT_META_TYPES_BUILD_FILE)
    target_sources(tst_Preview PRIVATE Tool/Models.h)
    target_compile_definitions(tst_Preview PRIVATE ZEL_PROGRAM="$<TARGET_FILE:zel>" ZEL_METATYPES="${metatypes}")
    add_dependencies(tst_Preview zel)
endif()
