# SPDX-License-Identifier: MIT
# The examples use the installed library; a test that linked the folders' static libraries, too, would have two of it.
function(zel_example_test name library)
    zel_program(${name} SOURCES Examples/${name}.cpp LIBRARIES ${library} Qt6::Test)
    add_test(NAME ${name}${name_suffix} COMMAND ${name})
    set_tests_properties(${name}${name_suffix} PROPERTIES LABELS "${labels}" TIMEOUT 300
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${environment}")
endfunction()

zel_example_test(tst_ShapesDocument zel_shapes_app)
zel_example_test(tst_ShapesCanvas zel_shapes_app)
zel_example_test(tst_ShapesList zel_shapes_app)
zel_example_test(tst_ShapesDescription zel_shapes_app)
zel_example_test(tst_ShapesInspector zel_shapes_app)
zel_program(tst_Canvas SOURCES Examples/tst_Canvas.cpp LIBRARIES zel_shapes_app Qt6::Test)
zel_add_e2e_test(tst_Canvas)
set(examples ${PROJECT_SOURCE_DIR}/examples)
set(tour Examples/ControlTour.cpp Examples/ControlTour.h)
zel_program(tst_ShapesControls SOURCES Examples/tst_ShapesControls.cpp ${tour} LIBRARIES zel_shapes_app Qt6::Test)
# The example's own main function is called by the test's.
zel_program(tst_SmallestControls SOURCES Examples/tst_SmallestControls.cpp ${tour} ${examples}/smallest/main.cpp
            LIBRARIES Zel::Zel Qt6::Test)
set_source_files_properties(${examples}/smallest/main.cpp PROPERTIES
                            COMPILE_DEFINITIONS main=exampleMain SKIP_PRECOMPILE_HEADERS ON)
qt_add_resources(tst_SmallestControls smallest PREFIX / BASE ${examples}/smallest
                 FILES ${examples}/smallest/Smallest.xml)
foreach(test tst_ShapesControls tst_SmallestControls)
    target_include_directories(${test} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    zel_add_e2e_test(${test})
endforeach()
