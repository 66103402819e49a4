# SPDX-License-Identifier: MIT
# The examples use the installed library; a test that linked the folders' static libraries, too, would have two of it.
set(examples ${PROJECT_SOURCE_DIR}/examples)
zel_program(tst_ShapesControls SOURCES Examples/tst_ShapesControls.cpp LIBRARIES zel_shapes_app Qt6::Test)
# The example's own main function is called by the test's.
zel_program(tst_SmallestControls SOURCES Examples/tst_SmallestControls.cpp ${examples}/smallest/main.cpp
            LIBRARIES Zel::Zel Qt6::Test)
set_source_files_properties(${examples}/smallest/main.cpp PROPERTIES
                            COMPILE_DEFINITIONS main=exampleMain SKIP_PRECOMPILE_HEADERS ON)
qt_add_resources(tst_SmallestControls smallest PREFIX / BASE ${examples}/smallest
                 FILES ${examples}/smallest/Smallest.xml)
file(GLOB network CONFIGURE_DEPENDS ${examples}/network/*.cpp ${examples}/network/*.h)
zel_program(tst_NetworkControls SOURCES Examples/tst_NetworkControls.cpp ${network} LIBRARIES Zel::Zel Qt6::Test)
set_source_files_properties(${examples}/network/main.cpp PROPERTIES
                            COMPILE_DEFINITIONS main=exampleMain SKIP_PRECOMPILE_HEADERS ON)
target_include_directories(tst_NetworkControls PRIVATE ${examples}/network)
qt_add_resources(tst_NetworkControls network_test PREFIX / BASE ${examples}/network
                 FILES ${examples}/network/Inspector.xml)
file(GLOB images CONFIGURE_DEPENDS ${examples}/network/images/*.png)
qt_add_resources(tst_NetworkControls network_images PREFIX / BASE ${examples}/network/images FILES ${images})
foreach(test tst_NetworkControls tst_ShapesControls tst_SmallestControls)
    target_include_directories(${test} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    zel_add_e2e_test(${test})
endforeach()
