# SPDX-License-Identifier: MIT
# zel_check_descriptions(target OWNER class FILES files... [SELECTIONS path=class...] [RESOURCES folders and .qrc files...]
#                        [CLASSES names...] [TRANSFORMERS names...] [IMAGES names...] [COLOR_LISTS names...]
#                        [PROPERTY_TYPES names...] [KEYS class.key...] [TYPES files...] [WERROR]):
# checks descriptions whenever the target is built, against the classes that moc finds in its sources (the target is to
# use AUTOMOC) and those of further files of moc's. To be called in the directory that defines the target; a mistake in
# a description then ends the build, with its file, line and column.
function(zel_check_descriptions target)
    cmake_parse_arguments(arg "WERROR" "OWNER"
        "FILES;SELECTIONS;RESOURCES;CLASSES;TRANSFORMERS;IMAGES;COLOR_LISTS;PROPERTY_TYPES;KEYS;TYPES" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_FILES)
        message(FATAL_ERROR "zel_check_descriptions(${target}): FILES are missing, or this is unknown: "
                            "${arg_UNPARSED_ARGUMENTS}")
    endif()
    qt6_extract_metatypes(${target})
    get_target_property(metatypes ${target} INTERFACE_QT_META_TYPES_BUILD_FILE)

    set(command Zel::zel check)
    set(depends ${metatypes} ${arg_TYPES})
    foreach(file IN LISTS arg_FILES)
        cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        list(APPEND command ${file})
        list(APPEND depends ${file})
    endforeach()
    get_target_property(collections ${target} SOURCES)
    list(FILTER collections INCLUDE REGEX "\\.qrc$")
    foreach(folder IN LISTS arg_RESOURCES collections)
        cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        list(APPEND command --resources ${folder})
        if(folder MATCHES "\\.qrc$")
            list(APPEND depends ${folder})
        endif()
    endforeach()
    if(arg_OWNER)
        list(APPEND command --owner ${arg_OWNER})
    endif()
    if(arg_WERROR)
        list(APPEND command --werror)
    endif()
    foreach(pair SELECTIONS:selection CLASSES:class TRANSFORMERS:transformer IMAGES:image COLOR_LISTS:color-list
                 PROPERTY_TYPES:property-type KEYS:key TYPES:types)
        string(REPLACE ":" ";" pair ${pair})
        list(GET pair 0 words)
        list(GET pair 1 option)
        foreach(word IN LISTS arg_${words})
            list(APPEND command --${option} ${word})
        endforeach()
    endforeach()
    list(APPEND command --types ${metatypes})

    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}_descriptions.stamp)
    add_custom_command(OUTPUT ${stamp} COMMAND ${command} COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
                       DEPENDS Zel::zel ${depends} COMMENT "Checking the descriptions of ${target}" VERBATIM)
    add_custom_target(${target}_descriptions ALL DEPENDS ${stamp})
    set_property(TARGET ${target} PROPERTY ZEL_CHECK_COMMAND "${command}") # tests run it, too
endfunction()
