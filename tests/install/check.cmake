# SPDX-License-Identifier: MIT
# Installs the library of the build tree zel_build below the folder work, and there configures, builds and runs the
# program of this folder, which knows nothing but that installation.
get_filename_component(source ${CMAKE_CURRENT_LIST_FILE} DIRECTORY)
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${zel_build} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${source} -B ${work}/build -G ${generator} -D CMAKE_CXX_COMPILER=${compiler}
    -D CMAKE_BUILD_TYPE=Debug -D CMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${work}/build)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${work}/build/installed_zel)
