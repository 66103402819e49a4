# SPDX-License-Identifier: MIT
zel_e2e_test(EndToEnd/tst_Editing zel_inspector)
zel_e2e_test(EndToEnd/tst_ColorEditors zel_inspector)
zel_e2e_test(EndToEnd/tst_Looks zel_inspector)
zel_e2e_test(EndToEnd/tst_Selections zel_inspector)
zel_e2e_test(EndToEnd/tst_TextEditors zel_inspector)
zel_e2e_test(EndToEnd/tst_ValueEditors zel_inspector)
zel_test(EndToEnd/tst_CellGroups zel_inspector)
zel_test(EndToEnd/tst_Lifetimes zel_inspector)
zel_test(EndToEnd/tst_PointerEvents zel_inspector zel_splitview)
zel_test(EndToEnd/tst_Errors zel_inspector)
foreach(test tst_Looks tst_TextEditors)
    target_compile_definitions(${test} PRIVATE ZEL_DOCS="${PROJECT_SOURCE_DIR}/docs")
endforeach()
if(ZEL_BUILD_EXAMPLES) # see Examples/tests.cmake
    zel_program(tst_Canvas SOURCES EndToEnd/tst_Canvas.cpp LIBRARIES zel_shapes_app Qt6::Test)
    zel_add_e2e_test(tst_Canvas)
    set(examples ${PROJECT_SOURCE_DIR}/examples)
    set(tour EndToEnd/ControlTour.cpp EndToEnd/ControlTour.h)
    zel_program(tst_ShapesControls SOURCES EndToEnd/tst_ShapesControls.cpp ${tour} LIBRARIES zel_shapes_app Qt6::Test)
    # The example's own main function is called by the test's.
    zel_program(tst_SmallestControls SOURCES EndToEnd/tst_SmallestControls.cpp ${tour} ${examples}/smallest/main.cpp
                LIBRARIES Zel::Zel Qt6::Test)
    set_source_files_properties(${examples}/smallest/main.cpp PROPERTIES
                                COMPILE_DEFINITIONS main=exampleMain SKIP_PRECOMPILE_HEADERS ON)
    qt_add_resources(tst_SmallestControls smallest PREFIX / BASE ${examples}/smallest
                     FILES ${examples}/smallest/Smallest.xml)
    foreach(test tst_ShapesControls tst_SmallestControls)
        target_include_directories(${test} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
        zel_add_e2e_test(${test})
    endforeach()
endif()
