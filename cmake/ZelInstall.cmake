# SPDX-License-Identifier: MIT
# What another project needs: the library, its public headers as they lie below src/, and the package files, so that
# find_package(Zel) and target_link_libraries(app Zel::Zel) work there. The components are the packages of
# ZelPackages.cmake.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Zel)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Here rather than in the other project's link. (Clang leaves the sanitizers' functions to the program.)
    target_link_options(Zel PRIVATE LINKER:--no-undefined)
endif()
install(TARGETS Zel EXPORT ZelTargets LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Zel COMPONENT development
        FILES_MATCHING PATTERN "*.h" PATTERN private EXCLUDE)
install(EXPORT ZelTargets NAMESPACE Zel:: DESTINATION ${package_dir} COMPONENT development)

if(ZEL_BUILD_TOOL)
    set(made ${PROJECT_BINARY_DIR}/tools/zel)
    set_target_properties(zel PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS zel EXPORT ZelToolTargets RUNTIME COMPONENT tools)
    install(EXPORT ZelToolTargets NAMESPACE Zel:: DESTINATION ${package_dir} COMPONENT tools)
    install(FILES ${made}/zel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
    install(FILES ${made}/zel.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zel
            COMPONENT tools)
    install(FILES ${made}/zel.rng ${made}/zel.xsd DESTINATION ${CMAKE_INSTALL_DATADIR}/zel COMPONENT tools)
endif()

set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/zel-doc)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${doc_dir} COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${doc_dir} COMPONENT documentation
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.xml")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/smallest ${PROJECT_SOURCE_DIR}/examples/network
        DESTINATION ${doc_dir}/examples COMPONENT documentation)

# The library's own texts for translators, and in the languages that it speaks.
set(translations_dir ${CMAKE_INSTALL_DATADIR}/zel/translations)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/translations/ DESTINATION ${translations_dir} COMPONENT development
        FILES_MATCHING PATTERN "*.ts")

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZelConfig.cmake.in ${PROJECT_BINARY_DIR}/ZelConfig.cmake
                              INSTALL_DESTINATION ${package_dir} PATH_VARS translations_dir)
# Before version 1 a new minor version may change anything.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZelDescriptions.cmake ${PROJECT_BINARY_DIR}/ZelConfig.cmake
              ${PROJECT_BINARY_DIR}/ZelConfigVersion.cmake DESTINATION ${package_dir} COMPONENT development)
