# drill2d_add_pack(NAME FOLDER): the files of a folder and of those below it, packed into NAME.zip beside the programs.
function(drill2d_add_pack name folder)
    file(GLOB_RECURSE assets RELATIVE ${folder} CONFIGURE_DEPENDS ${folder}/*)
    if(NOT assets)
        message(FATAL_ERROR "drill2d_add_pack: no files in ${folder} for the pack ${name}.zip")
    endif()
    list(TRANSFORM assets PREPEND ${folder}/ OUTPUT_VARIABLE files)
    set(programs ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    if(NOT programs)
        set(programs ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    set(pack ${programs}/${name}.zip)
    # Names beyond ASCII are lost where the locale knows ASCII only.
    if(NOT CMAKE_HOST_WIN32)
        set(with_utf8 ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8)
    endif()
    add_custom_command(
        OUTPUT ${pack}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${programs}
        COMMAND ${with_utf8} ${CMAKE_COMMAND} -E tar cf ${pack} --format=zip ${assets}
        WORKING_DIRECTORY ${folder}
        DEPENDS ${files}
        COMMENT "Packing ${name}.zip"
        VERBATIM)
    add_custom_target(${name}_pack ALL DEPENDS ${pack})
endfunction()

# drill2d_add_game(NAME SOURCES file... [ASSETS folder]): a program with the kit's DLLs beside it and the folder of
# assets in NAME.zip.
function(drill2d_add_game name)
    cmake_parse_arguments(arg "" "ASSETS" "SOURCES" ${ARGN})
    add_executable(${name} WIN32 ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE drill2d::drill2d)
    target_link_options(${name} PRIVATE -static)
    get_target_property(imported drill2d::drill2d IMPORTED)
    if(imported)
        add_custom_command(TARGET ${name} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_RUNTIME_DLLS:${name}> $<TARGET_FILE_DIR:${name}>
            COMMAND_EXPAND_LISTS VERBATIM)
    endif()
    if(arg_ASSETS)
        get_filename_component(folder ${arg_ASSETS} ABSOLUTE)
        drill2d_add_pack(${name} ${folder})
        add_dependencies(${name} ${name}_pack)
    endif()
endfunction()
