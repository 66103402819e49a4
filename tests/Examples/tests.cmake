# SPDX-License-Identifier: MIT
# The examples use the installed library; a test that linked the folders' static libraries, too, would have two of it.
function(zel_example_test name library)
    zel_program(${name} SOURCES Examples/${name}.cpp LIBRARIES ${library} Qt6::Test)
    add_test(NAME ${name}${name_suffix} COMMAND ${name})
    set_tests_properties(${name}${name_suffix} PROPERTIES LABELS "${labels}" TIMEOUT 300
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${environment}")
endfunction()

if(ZEL_BUILD_EXAMPLES)
    zel_example_test(tst_ShapesDocument zel_shapes_app)
    zel_example_test(tst_ShapesCanvas zel_shapes_app)
    zel_example_test(tst_ShapesList zel_shapes_app)
    zel_example_test(tst_ShapesDescription zel_shapes_app)
    zel_example_test(tst_ShapesInspector zel_shapes_app)
endif()
