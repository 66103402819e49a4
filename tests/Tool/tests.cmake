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
    # It uses the whole library; with the folders' static libraries, too, it would have two of it.
    zel_program(tst_Preview SOURCES Tool/tst_Preview.cpp LIBRARIES zel_preview Qt6::Test)
    target_include_directories(tst_Preview PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    add_test(NAME tst_Preview${name_suffix} COMMAND tst_Preview)
    set_tests_properties(tst_Preview${name_suffix} PROPERTIES LABELS "${labels}" TIMEOUT 300
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${environment}")
    qt6_extract_metatypes(tst_Preview)
    get_target_property(metatypes tst_Preview INTERFACE_QT_META_TYPES_BUILD_FILE)
    target_sources(tst_Preview PRIVATE Tool/Models.h)
    target_compile_definitions(tst_Preview PRIVATE ZEL_PROGRAM="$<TARGET_FILE:zel>" ZEL_METATYPES="${metatypes}")
    add_dependencies(tst_Preview zel)
endif()
