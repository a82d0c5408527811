# drill2d_import_hge(FOLDER): the targets drill2d::hge and drill2d::hgehelp of a framework that was built elsewhere.
# FOLDER has include/ (or include/hge/) with hge.h and the helpers' headers, lib/ with the import library and the
# helpers' library, and, if the DLL is to be copied beside programs, bin/ with hge.dll.
function(drill2d_import_hge folder)
    set(only NO_CACHE NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    find_path(headers hgegui.h PATHS ${folder}/include ${folder}/include/hge ${only})
    find_library(framework NAMES libhge.dll.a libhge.a hge.lib hge PATHS ${folder}/lib ${only})
    find_library(helpers NAMES libhgehelp.a hgehelp.lib hgehelp PATHS ${folder}/lib ${only})
    find_file(dll hge.dll PATHS ${folder}/bin ${folder} ${only})
    foreach(part headers framework helpers)
        if(NOT ${part})
            message(FATAL_ERROR "no ${part} of HGE in ${folder}: it needs include/ with hge.h and hgegui.h, and "
                                "lib/ with the libraries hge and hgehelp")
        endif()
    endforeach()

    add_library(drill2d::hge SHARED IMPORTED GLOBAL)
    set_target_properties(drill2d::hge PROPERTIES
        IMPORTED_IMPLIB ${framework} INTERFACE_INCLUDE_DIRECTORIES ${headers})
    if(dll)
        set_target_properties(drill2d::hge PROPERTIES IMPORTED_LOCATION ${dll})
    endif()
    add_library(drill2d::hgehelp STATIC IMPORTED GLOBAL)
    set_target_properties(drill2d::hgehelp PROPERTIES
        IMPORTED_LOCATION ${helpers} INTERFACE_INCLUDE_DIRECTORIES ${headers})
endfunction()
