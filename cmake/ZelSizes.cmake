# SPDX-License-Identifier: MIT
# The program zel_sizes tells how large the objects of the public classes are. Applications have these sizes compiled in:
# see tools/check-symbols.sh.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/src/*.h)
list(FILTER headers EXCLUDE REGEX "/private/")
set(includes)
set(lines)
foreach(header IN LISTS headers)
    file(STRINGS ${PROJECT_SOURCE_DIR}/src/${header} classes REGEX "^(class|struct) ZEL_EXPORT [A-Za-z0-9]+")
    foreach(class IN LISTS classes)
        string(REGEX REPLACE "^[a-z]+ ZEL_EXPORT ([A-Za-z0-9]+).*" "\\1" name "${class}")
        string(APPEND lines "    std::printf(\"object of ${name}, %zu bytes\\n\", sizeof(${name}));\n")
    endforeach()
    if(classes)
        string(APPEND includes "#include \"${header}\"\n")
    endif()
endforeach()
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/sizes.cpp
     CONTENT "@includes@#include <cstdio>\n\nint main()\n{\n@lines@}\n" @ONLY)

add_executable(zel_sizes EXCLUDE_FROM_ALL ${PROJECT_BINARY_DIR}/sizes.cpp)
set_target_properties(zel_sizes PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR} CXX_EXTENSIONS OFF)
target_compile_features(zel_sizes PRIVATE cxx_std_20)
target_include_directories(zel_sizes PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(zel_sizes PRIVATE Qt6::Widgets Qt6::Concurrent)
