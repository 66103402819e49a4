# SPDX-License-Identifier: MIT
# What another project needs: the library, its public headers as they lie below src/, and the package files, so that
# find_package(Zel) and target_link_libraries(app Zel::Zel) work there.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Zel)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Here rather than in the other project's link. (Clang leaves the sanitizers' functions to the program.)
    target_link_options(Zel PRIVATE LINKER:--no-undefined)
endif()
install(TARGETS Zel EXPORT ZelTargets)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zel FILES_MATCHING PATTERN "*.h"
        PATTERN private EXCLUDE)
if(ZEL_BUILD_TOOL)
    set(made ${PROJECT_BINARY_DIR}/tools/zel)
    install(TARGETS zel EXPORT ZelTargets)
    install(FILES ${made}/zel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${made}/zel.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zel)
    install(FILES ${made}/zel.rng ${made}/zel.xsd DESTINATION ${CMAKE_INSTALL_DATADIR}/zel)
endif()
install(EXPORT ZelTargets NAMESPACE Zel:: DESTINATION ${package_dir})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZelConfig.cmake.in ${PROJECT_BINARY_DIR}/ZelConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
# Before version 1 a new minor version may change anything.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZelCheck.cmake ${PROJECT_BINARY_DIR}/ZelConfig.cmake ${PROJECT_BINARY_DIR}/ZelConfigVersion.cmake
        DESTINATION ${package_dir})
