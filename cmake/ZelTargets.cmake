# SPDX-License-Identifier: MIT
# Every folder below src/ is a small static library of its own, so that a test links only the layers below it.
# The installed library is made of all their objects. Inside another project, where no tests are, it is made of the
# sources: CMake would ask for the objects before it knows those of moc.

# With all tests linked to one shared library, a change in one file is tested after one link (tools/mutants).
option(ZEL_ONE_TEST_LIBRARY "Link the tests with the shared library, from which nothing is hidden" OFF)
set(zel_visibility hidden)
if(ZEL_ONE_TEST_LIBRARY)
    set(zel_visibility default)
    set(CMAKE_LINK_DEPENDS_NO_SHARED ON)
endif()

add_library(zel_flags INTERFACE)
target_compile_features(zel_flags INTERFACE cxx_std_20)
target_compile_options(zel_flags INTERFACE -Wall -Wextra -Wpedantic -Wno-missing-field-initializers)
# A function of the library may be inlined into others, although it is exported; nobody replaces it from outside.
target_compile_options(zel_flags INTERFACE
                       $<$<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>:-fno-semantic-interposition>)
target_compile_definitions(zel_flags INTERFACE QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER QT_NO_KEYWORDS
                           $<IF:$<BOOL:${BUILD_SHARED_LIBS}>,ZEL_BUILD,ZEL_STATIC>)
if(NOT PROJECT_IS_TOP_LEVEL)
    # What the containing project forbids for its own sources, and how strictly it takes warnings, is not for these.
    target_compile_options(zel_flags INTERFACE $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-Wno-error>)
    foreach(macro QT_NO_CAST_FROM_ASCII QT_RESTRICTED_CAST_FROM_ASCII QT_NO_CAST_FROM_BYTEARRAY
                  QT_NO_URL_CAST_FROM_STRING)
        target_compile_options(zel_flags INTERFACE -U${macro})
    endforeach()
endif()

# What all targets have in common. Programs are compiled like the library, so that both share one precompiled header.
function(zel_set_up target)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON AUTOMOC ON AUTORCC ON
                          CXX_VISIBILITY_PRESET ${zel_visibility} VISIBILITY_INLINES_HIDDEN ON)
    zel_use_pch(${target})
    zel_watch_sources(${target})
endfunction()

function(zel_use_pch target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        if(NOT TARGET zel_pch)
            file(CONFIGURE OUTPUT ${Zel_BINARY_DIR}/zel_pch.cpp CONTENT "")
            add_library(zel_pch OBJECT ${Zel_BINARY_DIR}/zel_pch.cpp)
            set_target_properties(zel_pch PROPERTIES AUTOMOC OFF CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
                                  CXX_VISIBILITY_PRESET ${zel_visibility} VISIBILITY_INLINES_HIDDEN ON)
            if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
                # The same header gives the same file, so that ccache knows it again.
                target_compile_options(zel_pch PRIVATE -Xclang -fno-pch-timestamp)
            endif()
            target_link_libraries(zel_pch PRIVATE zel_flags Qt6::Widgets Qt6::Concurrent)
            target_precompile_headers(zel_pch PRIVATE <QtCore> <QtWidgets> <algorithm> <functional> <memory> <optional>
                                      <unordered_map> <vector>)
        endif()
        target_precompile_headers(${target} REUSE_FROM zel_pch)
    endif()
endfunction()

# Automoc runs again when a file that it knows has changed, but not for a new one: with another list of files, it is made
# to run.
function(zel_watch_sources target)
    get_target_property(sources ${target} SOURCES)
    set(list ${PROJECT_BINARY_DIR}/sources/${target}.txt)
    set(known)
    if(EXISTS ${list})
        file(READ ${list} known)
    endif()
    if(NOT known STREQUAL sources)
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp)
        file(WRITE ${list} "${sources}")
    endif()
endfunction()

# zel_folder(name path [dependencies...] [SHELVES folders...] [LIBRARIES ...]): the static library zel_<name> from all sources
# in src/<path>, its private/ and its shelves, which are one folder to the rules of inclusion.
function(zel_folder name path)
    cmake_parse_arguments(arg "" "" "SHELVES;LIBRARIES" ${ARGN})
    set(patterns)
    foreach(folder "" private ${arg_SHELVES})
        list(APPEND patterns ${PROJECT_SOURCE_DIR}/src/${path}/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/src/${path}/${folder}/*.h)
    endforeach()
    file(GLOB sources CONFIGURE_DEPENDS ${patterns})
    if(NOT PROJECT_IS_TOP_LEVEL)
        set_property(GLOBAL APPEND PROPERTY ZEL_SOURCES ${sources})
        return()
    endif()
    set(target zel_${name})
    set(uses ${arg_UNPARSED_ARGUMENTS})
    if(ZEL_ONE_TEST_LIBRARY)
        set(target zel_${name}_objects)
        set(uses)
        add_library(zel_${name} INTERFACE)
        target_link_libraries(zel_${name} INTERFACE Zel)
    endif()
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
    target_link_libraries(${target} PRIVATE zel_flags ${arg_LIBRARIES} PUBLIC ${uses} Qt6::Widgets Qt6::Concurrent)
    zel_set_up(${target})
    set_property(GLOBAL APPEND PROPERTY ZEL_FOLDERS ${target})
endfunction()

# zel_program(target folders... SOURCES ...): a program with the library's flags and precompiled header.
function(zel_program target)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE zel_flags ${arg_LIBRARIES} Qt6::Widgets Qt6::Concurrent)
    zel_set_up(${target})
endfunction()
