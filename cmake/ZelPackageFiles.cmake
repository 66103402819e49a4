# SPDX-License-Identifier: MIT
# CPack runs this on what is to become the Debian packages. They get what Debian's policy wants of a package's files, and
# what another installation should not have.
# With cpack -D CPACK_ZEL_REFERENCE=<folder that ./docs.sh has made>, the reference is among them.
if(CPACK_ZEL_REFERENCE)
    file(COPY ${CPACK_ZEL_REFERENCE} DESTINATION ${CPACK_TEMPORARY_DIRECTORY}/documentation/usr/share/doc/zel-doc)
endif()
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
    set(doc ${root}/share/doc/${package})
    configure_file(${CPACK_RESOURCE_FILE_LICENSE} ${doc}/copyright COPYONLY)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${doc}/changelog @ONLY)
    file(GLOB_RECURSE pages ${root}/share/man/*)
    execute_process(COMMAND gzip -9nf ${doc}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
    # The system's folders of libraries need no mention in programs.
    file(GLOB programs ${root}/bin/*)
    foreach(program IN LISTS programs)
        file(RPATH_REMOVE FILE ${program})
    endforeach()
endforeach()
