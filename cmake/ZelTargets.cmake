# SPDX-License-Identifier: MIT
# Every folder below src/ is a small static library of its own, so that a test links only the layers below it.
# The installed library is made of all their objects.

add_library(zel_flags INTERFACE)
target_compile_options(zel_flags INTERFACE -Wall -Wextra -Wpedantic -Wno-missing-field-initializers)
target_compile_definitions(zel_flags INTERFACE QT_NO_CAST_TO_ASCII QT_USE_QSTRINGBUILDER QT_NO_KEYWORDS)

function(zel_use_pch target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        if(NOT TARGET zel_pch)
            file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/zel_pch.cpp CONTENT "")
            add_library(zel_pch OBJECT ${CMAKE_BINARY_DIR}/zel_pch.cpp)
            set_target_properties(zel_pch PROPERTIES AUTOMOC OFF AUTORCC OFF)
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

# zel_folder(name path [dependencies...]): the static library zel_<name> from all sources in src/<path>.
function(zel_folder name path)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${path}/*.cpp ${PROJECT_SOURCE_DIR}/src/${path}/*.h
         ${PROJECT_SOURCE_DIR}/src/${path}/*.qrc)
    if(NOT sources MATCHES "\\.cpp")
        add_library(zel_${name} INTERFACE)
        target_include_directories(zel_${name} INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
        target_link_libraries(zel_${name} INTERFACE ${ARGN} Qt6::Widgets)
        return()
    endif()
    add_library(zel_${name} STATIC ${sources})
    target_include_directories(zel_${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
    target_link_libraries(zel_${name} PRIVATE zel_flags PUBLIC ${ARGN} Qt6::Widgets Qt6::Concurrent)
    zel_use_pch(zel_${name})
    zel_watch_sources(zel_${name})
    set_property(GLOBAL APPEND PROPERTY ZEL_FOLDERS zel_${name})
endfunction()

# zel_program(target folders... SOURCES ...): a program with the library's flags and precompiled header.
function(zel_program target)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE zel_flags ${arg_LIBRARIES} Qt6::Widgets Qt6::Concurrent)
    zel_use_pch(${target})
    zel_watch_sources(${target})
endfunction()
