# SPDX-License-Identifier: MIT
# The target zel_headers compiles every header alone, as the first line of a source file of someone else's: without the
# library's flags and without its precompiled header.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/src/*.h)
set(sources)
foreach(header IN LISTS headers)
    set(source ${PROJECT_BINARY_DIR}/headers/${header}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n" @ONLY)
    list(APPEND sources ${source})
endforeach()

add_library(zel_headers OBJECT EXCLUDE_FROM_ALL ${sources})
target_compile_features(zel_headers PRIVATE cxx_std_20)
target_include_directories(zel_headers PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zel_headers PRIVATE -Wall -Wextra -Werror -O0 -g0)
target_link_libraries(zel_headers PRIVATE Qt6::Widgets Qt6::Concurrent)
