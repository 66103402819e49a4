# SPDX-License-Identifier: MIT
# Debian packages of the build tree: cpack -G DEB. tools/check-packages.sh makes and tries them.
if(NOT BUILD_SHARED_LIBS OR NOT ZEL_BUILD_TOOL)
    return() # they are made of the shared library and the program
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zel)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Zel authors <zel@zel.invalid>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/ZelPackageFiles.cmake)
set(CPACK_COMPONENTS_ALL runtime development tools documentation)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# zel_package(component name section summary text [KEY value...]): shared libraries that it uses need not be said.
macro(zel_package component name section summary text)
    set(package CPACK_DEBIAN_${component})
    set(${package}_PACKAGE_NAME ${name})
    set(${package}_PACKAGE_SECTION ${section})
    set(${package}_DESCRIPTION "inspector panels described in XML - ${summary}
Zel builds inspector panels for Qt 6 Widgets applications from descriptions in
XML, binds each editor to a key path below the application's selection, and
edits many selected objects at once.

${text}")
    cmake_parse_arguments(${package}_PACKAGE "" "DEPENDS;RECOMMENDS;SUGGESTS;ARCHITECTURE;SHLIBDEPS;CONTROL_EXTRA" ""
                          ${ARGN})
endmacro()

set(same "(= ${PROJECT_VERSION})")
set(library libzel${ZEL_SOVERSION})
zel_package(RUNTIME ${library} libs "shared library" "This package has the shared library."
            CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/debian/triggers)
zel_package(DEVELOPMENT libzel-dev libdevel "development files"
            "This package has the headers and what CMake needs to find the library."
            DEPENDS "${library} ${same}, qt6-base-dev (>= 6.4), libgl-dev" RECOMMENDS "zel-tools ${same}"
            SUGGESTS "zel-doc, qt6-tools-dev, qt6-l10n-tools")
zel_package(TOOLS zel-tools devel "checker and preview"
            "This package has the program zel, which checks descriptions while an
application is built, collects their texts for translators, and shows them."
            DEPENDS "${library} ${same}")
zel_package(DOCUMENTATION zel-doc doc "documentation and examples"
            "This package has the documentation and two complete examples."
            ARCHITECTURE all SHLIBDEPS OFF)
include(CPack)
