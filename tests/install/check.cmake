# SPDX-License-Identifier: MIT
# Installs the library of the build tree zel_build below the folder work, and there configures, builds and runs the
# program of this folder, which knows nothing but that installation, with both compilers. Then the same with a static
# library. At last, another project contains the sources.
cmake_minimum_required(VERSION 3.25)
get_filename_component(source ${CMAKE_CURRENT_LIST_FILE} DIRECTORY)
file(REAL_PATH ${source}/../.. root)
file(REMOVE_RECURSE ${work})
set(program ${work}/program)
file(COPY ${source}/CMakeLists.txt ${source}/Note.xml ${source}/main.cpp DESTINATION ${program})
find_program(clang NAMES clang++ clang++-14 REQUIRED)

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(configure from to)
    run(${CMAKE_COMMAND} -S ${from} -B ${to} -G ${generator} -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_BUILD_TYPE=Debug
        ${ARGN})
endfunction()

function(run_program prefix compiler to)
    configure(${program} ${to} -D CMAKE_PREFIX_PATH=${prefix})
    run(${CMAKE_COMMAND} --build ${to} --target ${ARGN} installed_zel)
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${to}/installed_zel)
endfunction()

# What lies in a private/ is neither installed nor exported.
function(check_private prefix)
    file(GLOB_RECURSE installed ${prefix}/include/*.h)
    foreach(header IN LISTS installed)
        if(header MATCHES "/private/")
            message(FATAL_ERROR "${header} is installed")
        endif()
    endforeach()

    file(GLOB_RECURSE library ${prefix}/*/libZel.so)
    execute_process(COMMAND nm -D -C --defined-only ${library} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
    if(NOT symbols MATCHES " ZelInspectorSlice::ZelInspectorSlice\\(")
        message(FATAL_ERROR "ZelInspectorSlice is not exported")
    endif()
    file(GLOB_RECURSE headers ${root}/src/*.h)
    list(FILTER headers INCLUDE REGEX "/private/")
    foreach(header IN LISTS headers)
        file(STRINGS ${header} lines REGEX "^(class|struct) Zel[A-Za-z0-9]+( final)?( :.*)?$")
        foreach(line IN LISTS lines)
            string(REGEX REPLACE "^(class|struct) ([A-Za-z0-9]+).*" "\\2" class "${line}")
            if(symbols MATCHES "( | for )${class}(::[^\n]*)?\n")
                message(FATAL_ERROR "${class} is private to the library, but exported: ${CMAKE_MATCH_0}")
            endif()
        endforeach()
    endforeach()
endfunction()

# The program's translations are made when they are asked for, and a mistake in its description ends the build.
function(check_descriptions build)
    run(${CMAKE_COMMAND} --build ${build} --target installed_zel_strings)
    file(READ ${program}/Note_de.ts translations)
    if(NOT translations MATCHES "language=\"de\".*<source>Note</source>")
        message(FATAL_ERROR "The texts of Note.xml are missing: ${translations}")
    endif()
    run(${CMAKE_COMMAND} ${build})
    run(${CMAKE_COMMAND} --build ${build})
    if(NOT EXISTS ${build}/installed_zel_descriptions/Note_de.qm OR
       NOT EXISTS ${build}/installed_zel_descriptions/zel_de.qm)
        message(FATAL_ERROR "The translations are not compiled")
    endif()

    file(READ ${program}/Note.xml description)
    string(REPLACE keyPath=\"text keyPath=\"txet wrong "${description}")
    file(WRITE ${program}/Note.xml "${wrong}")
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${build} --target installed_zel RESULT_VARIABLE result
                    OUTPUT_VARIABLE output)
    file(WRITE ${program}/Note.xml "${description}")
    if(result EQUAL 0 OR NOT output MATCHES "\n${program}/Note.xml:[0-9]+:[0-9]+: error: [^\n]*\"txet\"")
        message(FATAL_ERROR "A mistake in a description does not end the build as it should: ${output}")
    endif()
endfunction()

set(shared ${work}/shared)
run(${CMAKE_COMMAND} --install ${zel_build} --prefix ${shared})
check_private(${shared})
run_program(${shared} ${compiler} ${work}/build-shared installed_headers)
check_descriptions(${work}/build-shared)
run_program(${shared} ${clang} ${work}/build-shared-clang installed_headers)

# A static library is built of the same sources. Compiling all of them once more takes long and would find little: it is
# put together of the folders that are there.
configure(${root} ${work}/static-build -D BUILD_SHARED_LIBS=OFF -D ZEL_BUILD_TESTS=OFF -D ZEL_BUILD_EXAMPLES=OFF
          -D ZEL_BUILD_TOOL=OFF)
string(REPLACE "," "\naddlib " folders "${folders}")
file(WRITE ${work}/archive.txt "create ${work}/static-build/src/libZel.a\naddlib ${folders}\nsave\nend\n")
execute_process(COMMAND ar -M INPUT_FILE ${work}/archive.txt COMMAND_ERROR_IS_FATAL ANY)
run(${CMAKE_COMMAND} --install ${work}/static-build --prefix ${work}/static)
run_program(${work}/static ${compiler} ${work}/build-static)
run_program(${work}/static ${clang} ${work}/build-static-clang)

configure(${source}/subproject ${work}/build-subproject -D zel_root=${root})
