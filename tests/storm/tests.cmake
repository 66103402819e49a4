# SPDX-License-Identifier: MIT
# A few seeds in the plain build, many under the sanitizers.
file(GLOB storm_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.cpp ${CMAKE_CURRENT_LIST_DIR}/*.h)
zel_program(storm SOURCES ${storm_sources} LIBRARIES zel_inspector)
target_include_directories(storm PRIVATE ${CMAKE_CURRENT_LIST_DIR} ${CMAKE_CURRENT_LIST_DIR}/..)
target_compile_definitions(storm PRIVATE ZEL_STORM="${CMAKE_CURRENT_LIST_DIR}" ZEL_DOCS="${PROJECT_SOURCE_DIR}/docs")

set(storm_seeds 4)
if(labels)
    set(storm_seeds 20)
endif()
# What the storm throws through Qt's own functions leaves memory of theirs behind: leaks say nothing here.
add_test(NAME storm${name_suffix} COMMAND storm --seeds ${storm_seeds} --steps 5000)
set_tests_properties(storm${name_suffix} PROPERTIES LABELS "${labels}" TIMEOUT 1200
                     ENVIRONMENT "${environment};ASAN_OPTIONS=detect_stack_use_after_return=1:detect_leaks=0")
