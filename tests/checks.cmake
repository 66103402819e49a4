# SPDX-License-Identifier: MIT
# Tests labelled "check": ctest -L check.
function(zel_check name)
    add_test(NAME check_${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(check_${name} PROPERTIES LABELS check TIMEOUT 2400)
endfunction()

zel_check(includes python3 tools/check-includes.py)
zel_check(format tools/check-format.sh)
zel_check(texts python3 tools/library-texts.py --check)
zel_check(docs ./docs.sh)
set(schema)
if(ZEL_BUILD_TOOL)
    set(schema --schema ${PROJECT_BINARY_DIR}/tools/zel/zel.rng)
endif()
zel_check(docs_code python3 tools/check-docs-code.py ${schema})
zel_check(tidy tools/check-tidy.sh ${PROJECT_BINARY_DIR})

include(${PROJECT_SOURCE_DIR}/cmake/ZelHeaders.cmake)
zel_check(headers tools/check-headers.sh ${PROJECT_BINARY_DIR})

include(${CMAKE_CURRENT_LIST_DIR}/threads/threads.cmake)
zel_check(threads ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target zel_threads)

get_property(folders GLOBAL PROPERTY ZEL_FOLDERS)
list(TRANSFORM folders REPLACE "(.+)" "$<TARGET_FILE:\\1>")
list(JOIN folders , folders)
zel_check(install ${CMAKE_COMMAND} -D zel_build=${PROJECT_BINARY_DIR} -D work=${PROJECT_BINARY_DIR}/install-check
          -D folders=${folders} -D generator=${CMAKE_GENERATOR} -D compiler=${CMAKE_CXX_COMPILER}
          -P ${CMAKE_CURRENT_LIST_DIR}/install/check.cmake)
if(BUILD_SHARED_LIBS)
    include(${PROJECT_SOURCE_DIR}/cmake/ZelSizes.cmake)
    zel_check(symbols tools/check-symbols.sh ${PROJECT_BINARY_DIR})
    set_tests_properties(check_symbols PROPERTIES RUN_SERIAL ON)
endif()
if(BUILD_SHARED_LIBS AND ZEL_BUILD_TOOL)
    zel_check(packages tools/check-packages.sh ${PROJECT_BINARY_DIR})
    set_tests_properties(check_packages PROPERTIES SKIP_RETURN_CODE 77)
endif()

# Builds the fuzz targets, and runs each for a bounded time.
if(EXISTS ${PROJECT_SOURCE_DIR}/tools/fuzz.sh)
    zel_check(fuzz tools/fuzz.sh)
    set_tests_properties(check_fuzz PROPERTIES RUN_SERIAL ON)
endif()

# They build something in parallel themselves; one at a time keeps the machine for them.
set_tests_properties(check_tidy check_headers check_threads PROPERTIES RUN_SERIAL ON)
