# SPDX-License-Identifier: MIT
# The target zel_threads builds what the concurrent operations consist of with the thread sanitizer, and runs it: first
# with a race in it, which must be found, then as it is.
add_executable(zel_threads_program EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/main.cpp
               ${PROJECT_SOURCE_DIR}/src/Blocks/ZelConcurrentWork.cpp ${PROJECT_SOURCE_DIR}/src/Core/Values/ZelIndexSet.cpp)
target_include_directories(zel_threads_program BEFORE PRIVATE ${CMAKE_CURRENT_LIST_DIR}/stub ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zel_threads_program PRIVATE -fsanitize=thread -O1 -g1)
target_link_options(zel_threads_program PRIVATE -fsanitize=thread)
target_link_libraries(zel_threads_program PRIVATE zel_flags zel_values)

add_custom_target(zel_threads
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/run.sh $<TARGET_FILE:zel_threads_program>
    DEPENDS zel_threads_program VERBATIM)
