# SPDX-License-Identifier: MIT
# zel_add_descriptions(target FILES files... [PREFIX prefix] [IMAGE_FILES files...]
#                      [TS_FILES files...] [CONTEXT name] [ALSO element@attribute...]
#                      [LIBRARY_TS_FILES files...] [words of the check...]):
# makes descriptions, images and translations resources of the target, by their bare names below PREFIX, "/" if it is
# not given; a description in a subfolder of the first one's keeps that folder in its name. Whenever the target is built,
# its descriptions are checked as by zel_check_descriptions, for which the IMAGE_FILES count as known. The translations
# are put in as lrelease makes them, name.qm for name.ts; the target <target>_strings brings all TS_FILES up to date
# with the texts of all descriptions of the target. Can be called several times for a target, once with TS_FILES.
# LIBRARY_TS_FILES have the library's own texts, and are only compiled: those of the library, such as zel_de.ts, or files
# of the application's that were made of its zel.ts.
#
# zel_check_descriptions(target FILES files... [OWNER class] [SELECTIONS path=class...]
#                        [RESOURCES folders and .qrc files...] [CLASSES names...] [TRANSFORMERS names...]
#                        [IMAGES names...] [COLOR_LISTS names...] [PROPERTY_TYPES names...] [KEYS class.key...]
#                        [TYPES files...] [WERROR]):
# only checks, for descriptions that are no resources: against the classes that moc finds in the target's sources (the
# target is to use AUTOMOC) and those of further files of moc's. The .qrc files among its sources count as RESOURCES. A
# mistake ends the build, with file, line and column.
#
# Both are called in the directory that defines the target. Without the program zel nothing is checked or collected.
function(zel_add_descriptions target)
    zel_read_description_words(zel_add_descriptions ${ARGN})
    zel_count_descriptions(${target} "${arg_FILES}")
    if(NOT arg_PREFIX)
        set(arg_PREFIX /)
    endif()
    list(GET arg_FILES 0 first)
    cmake_path(GET first PARENT_PATH base)
    zel_add_by_name(${target} ${id} "${base}" "${arg_FILES}")
    zel_add_by_name(${target} ${id}_images "" "${arg_IMAGE_FILES}")
    foreach(image IN LISTS arg_IMAGE_FILES)
        cmake_path(GET image FILENAME file_name)
        cmake_path(GET image STEM LAST_ONLY name)
        list(APPEND arg_IMAGES ${name} ${file_name})
    endforeach()
    zel_find_metatypes(${target})
    set_property(TARGET ${target} APPEND PROPERTY ZEL_DESCRIPTION_SELECTIONS ${arg_SELECTIONS})
    if(arg_TS_FILES)
        zel_add_translations(${target})
    endif()
    zel_find_library_texts(${target})
    zel_compile_translations(${target} ${id} "${arg_TS_FILES};${arg_LIBRARY_TS_FILES}")
    zel_add_check(${target} --complete)
endfunction()

function(zel_check_descriptions target)
    zel_read_description_words(zel_check_descriptions ${ARGN})
    zel_count_descriptions(${target} "")
    zel_find_metatypes(${target})
    zel_add_check(${target})
endfunction()

# What follows is not called from outside. The functions read the words, arg_..., and the id of their caller.

macro(zel_read_description_words function)
    cmake_parse_arguments(arg "WERROR" "OWNER;PREFIX;CONTEXT" "FILES;SELECTIONS;RESOURCES;CLASSES;TRANSFORMERS;IMAGES;\
COLOR_LISTS;PROPERTY_TYPES;KEYS;TYPES;IMAGE_FILES;TS_FILES;LIBRARY_TS_FILES;ALSO" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_FILES)
        message(FATAL_ERROR "${function}(${target}): FILES are missing, or this is unknown: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    get_target_property(collections ${target} SOURCES)
    list(FILTER collections INCLUDE REGEX "\\.qrc$")
    list(APPEND arg_RESOURCES ${collections})
    foreach(word FILES RESOURCES IMAGE_FILES TS_FILES)
        set(absolute)
        foreach(path IN LISTS arg_${word})
            cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
            list(APPEND absolute ${path})
        endforeach()
        set(arg_${word} ${absolute})
    endforeach()
endmacro()

# Sets id, <target>_descriptions for the first call about a target, and remembers the files of all calls.
function(zel_count_descriptions target files)
    get_target_property(ids ${target} ZEL_DESCRIPTIONS)
    set(id ${target}_descriptions)
    if(ids)
        list(LENGTH ids count)
        math(EXPR count "${count} + 1")
        string(APPEND id _${count})
    endif()
    set_property(TARGET ${target} APPEND PROPERTY ZEL_DESCRIPTIONS ${id})
    set_property(TARGET ${target} APPEND PROPERTY ZEL_DESCRIPTION_FILES ${files})
    set(id ${id} PARENT_SCOPE)
endfunction()

# Makes resources of files: those below base by their paths from there, others by their bare names.
function(zel_add_by_name target name base files)
    set(number 0)
    while(files)
        list(GET files 0 first)
        cmake_path(GET first PARENT_PATH folder)
        set(together)
        foreach(file IN LISTS files)
            cmake_path(GET file PARENT_PATH other)
            cmake_path(IS_PREFIX base ${other} below)
            if(base AND below)
                set(other ${base})
            endif()
            if(other STREQUAL folder)
                list(APPEND together ${file})
            endif()
        endforeach()
        list(REMOVE_ITEM files ${together})
        math(EXPR number "${number} + 1")
        string(MAKE_C_IDENTIFIER ${name}_${number} resource)
        qt6_add_resources(${target} ${resource} PREFIX ${arg_PREFIX} BASE ${folder} FILES ${together})
    endwhile()
endfunction()

function(zel_add_translations target)
    if(TARGET ${target}_strings)
        message(FATAL_ERROR "zel_add_descriptions(${target}): a target's TS_FILES are given once, for all descriptions")
    endif()
    set(update)
    foreach(ts IN LISTS arg_TS_FILES)
        list(APPEND update COMMAND Zel::zel strings "$<TARGET_PROPERTY:${target},ZEL_DESCRIPTION_FILES>" --output ${ts})
        if(NOT EXISTS ${ts})
            message(NOTICE "${target}: ${ts} does not exist. Build ${target}_strings, and configure again")
            list(REMOVE_ITEM arg_TS_FILES ${ts})
            if(ts MATCHES "_([a-z][a-z](_[A-Z][A-Z])?)\\.ts$")
                list(APPEND update --language ${CMAKE_MATCH_1})
            endif()
        endif()
        foreach(pair context:CONTEXT also:ALSO resources:RESOURCES owner:OWNER types:TYPES)
            string(REGEX MATCH "(.+):(.+)" pair ${pair})
            foreach(word IN LISTS arg_${CMAKE_MATCH_2})
                list(APPEND update --${CMAKE_MATCH_1} ${word})
            endforeach()
        endforeach()
        if(metatypes)
            set(all "$<TARGET_PROPERTY:${target},ZEL_DESCRIPTION_SELECTIONS>")
            list(APPEND update --types ${metatypes} "$<$<BOOL:${all}>:--selection=$<JOIN:${all}, >>")
        endif()
    endforeach()
    set(arg_TS_FILES ${arg_TS_FILES} PARENT_SCOPE) # without those that do not exist yet
    if(TARGET Zel::zel)
        add_custom_target(${target}_strings ${update} DEPENDS ${metatypes} VERBATIM COMMAND_EXPAND_LISTS
                          COMMENT "Collecting the texts of the descriptions of ${target}")
    endif()
endfunction()

# Replaces the names of the library's files in arg_LIBRARY_TS_FILES by their paths. Others are the application's.
function(zel_find_library_texts target)
    get_property(folder GLOBAL PROPERTY ZEL_TRANSLATIONS)
    set(found)
    foreach(name IN LISTS arg_LIBRARY_TS_FILES)
        cmake_path(ABSOLUTE_PATH name BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE OUTPUT_VARIABLE ts)
        if(NOT EXISTS ${ts})
            set(ts ${folder}/${name})
        endif()
        if(NOT EXISTS ${ts})
            file(GLOB known RELATIVE ${folder} ${folder}/zel_*.ts)
            message(FATAL_ERROR "zel_add_descriptions(${target}): there is no ${name}. The library has ${known}; others "
                                "are made of ${folder}/zel.ts")
        endif()
        list(APPEND found ${ts})
    endforeach()
    set(arg_LIBRARY_TS_FILES ${found} PARENT_SCOPE)
endfunction()

# Makes resources of translations, name.qm of name.ts.
function(zel_compile_translations target id files)
    list(REMOVE_ITEM files "")
    if(NOT files)
        return()
    endif()
    find_package(Qt6 QUIET COMPONENTS LinguistTools)
    if(NOT TARGET Qt6::lrelease)
        message(NOTICE "${target}: Qt's linguist tools are missing, so the translations of its descriptions are left out")
        return()
    endif()
    set(made)
    foreach(ts IN LISTS files)
        cmake_path(GET ts STEM LAST_ONLY name)
        set(qm ${CMAKE_CURRENT_BINARY_DIR}/${id}/${name}.qm)
        file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${id})
        add_custom_command(OUTPUT ${qm} COMMAND Qt6::lrelease -silent ${ts} -qm ${qm} DEPENDS ${ts} VERBATIM)
        list(APPEND made ${qm})
    endforeach()
    zel_add_by_name(${target} ${id}_translations "" "${made}")
endfunction()

# Sets metatypes, the file with the classes that moc finds in the target's sources.
function(zel_find_metatypes target)
    get_target_property(uses_automoc ${target} AUTOMOC)
    set(metatypes)
    if(uses_automoc AND TARGET Zel::zel)
        qt6_extract_metatypes(${target})
        get_target_property(metatypes ${target} INTERFACE_QT_META_TYPES_BUILD_FILE)
    endif()
    set(metatypes ${metatypes} PARENT_SCOPE)
endfunction()

function(zel_add_check target)
    if(NOT TARGET Zel::zel)
        message(NOTICE "${target}: the program zel is missing (Debian: zel-tools), so its descriptions are not checked")
        return()
    endif()
    if(NOT metatypes AND NOT arg_TYPES)
        message(FATAL_ERROR "The descriptions of ${target} are checked against the classes that AUTOMOC finds: "
                            "set(CMAKE_AUTOMOC ON) before the target is made")
    endif()

    set(collections ${arg_RESOURCES})
    list(FILTER collections INCLUDE REGEX "\\.qrc$")
    set(command Zel::zel check ${arg_FILES} ${ARGN})
    if(arg_WERROR)
        list(APPEND command --werror)
    endif()
    foreach(pair owner:OWNER selection:SELECTIONS resources:RESOURCES class:CLASSES transformer:TRANSFORMERS image:IMAGES
                 color-list:COLOR_LISTS property-type:PROPERTY_TYPES key:KEYS types:TYPES)
        string(REGEX MATCH "(.+):(.+)" pair ${pair})
        foreach(word IN LISTS arg_${CMAKE_MATCH_2})
            list(APPEND command --${CMAKE_MATCH_1} ${word})
        endforeach()
    endforeach()
    if(metatypes)
        list(APPEND command --types ${metatypes})
    endif()

    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${id}.stamp)
    add_custom_command(OUTPUT ${stamp} COMMAND ${command} COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
                       DEPENDS Zel::zel ${arg_FILES} ${arg_IMAGE_FILES} ${collections} ${metatypes} ${arg_TYPES}
                       COMMENT "Checking the descriptions of ${target}" VERBATIM)
    # As one of its sources the stamp is made before the target, whichever way that is built.
    target_sources(${target} PRIVATE ${stamp})
    set_property(TARGET ${target} PROPERTY ZEL_CHECK_COMMAND "${command}") # tests run it, too
endfunction()
