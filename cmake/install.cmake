# The kit as its users get it: a copy in build/sdk after every build, and an archive (the target "archive").
include(CMakePackageConfigHelpers)

# What is installed carries no debug information.
install(CODE "set(CMAKE_INSTALL_DO_STRIP TRUE)")
install(TARGETS drill2d EXPORT drill2d RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
if(DRILL2D_HGE_DIR)
    get_target_property(headers drill2d::hge INTERFACE_INCLUDE_DIRECTORIES)
    get_target_property(libraries drill2d::hge IMPORTED_IMPLIB)
    get_target_property(helpers drill2d::hgehelp IMPORTED_LOCATION)
    get_target_property(dll drill2d::hge IMPORTED_LOCATION)
    install(DIRECTORY ${headers}/ DESTINATION include/hge FILES_MATCHING PATTERN "hge*.h")
    install(FILES ${libraries} ${helpers} DESTINATION lib)
    if(dll)
        install(FILES ${dll} DESTINATION bin)
    endif()
    install(FILES cmake/import_hge.cmake DESTINATION lib/cmake/drill2d)
    set(sdk_targets drill2d)
else()
    install(TARGETS hge hgehelp EXPORT drill2d RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
    install(TARGETS packcheck RUNTIME DESTINATION bin)
    install(CODE "execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/libhgehelp.a\" COMMAND_ERROR_IS_FATAL ANY)")
    install(DIRECTORY hge/include/ DESTINATION include/hge FILES_MATCHING PATTERN "*.h")
    set(sdk_targets hge hgehelp drill2d packcheck)
endif()
install(DIRECTORY include/drill2d DESTINATION include FILES_MATCHING PATTERN "*.h")
install(DIRECTORY examples DESTINATION .)
install(DIRECTORY docs DESTINATION . PATTERN snippets EXCLUDE)
install(FILES README.md CHANGELOG.md LICENSE THIRD_PARTY.md DESTINATION .)
install(FILES cmake/mingw-w64-i686.cmake DESTINATION cmake)

set(package_dir lib/cmake/drill2d)
install(EXPORT drill2d NAMESPACE drill2d:: FILE drill2dTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/drill2dConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfig.cmake INSTALL_DESTINATION ${package_dir})
# Before 1.0 a minor version may change the interface.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/drill2dConfigVersion.cmake
    COMPATIBILITY SameMinorVersion ARCH_INDEPENDENT)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfigVersion.cmake
    cmake/drill2dGame.cmake
    DESTINATION ${package_dir})

file(GLOB_RECURSE sdk_files CONFIGURE_DEPENDS
    include/drill2d/*.h hge/include/*.h docs/* examples/* README.md CHANGELOG.md LICENSE THIRD_PARTY.md)
set(sdk ${CMAKE_BINARY_DIR}/sdk)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/sdk.stamp
    # A header that is gone must not live on in the tree.
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${sdk}
    COMMAND ${CMAKE_COMMAND} -DCMAKE_INSTALL_PREFIX=${sdk} -DCMAKE_INSTALL_MESSAGE=NEVER
            -P ${CMAKE_BINARY_DIR}/cmake_install.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/sdk.stamp
    DEPENDS ${sdk_targets} ${sdk_files}
    COMMENT "Installing into build/sdk"
    VERBATIM)
add_custom_target(sdk ALL DEPENDS ${CMAKE_BINARY_DIR}/sdk.stamp)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME drill2d-${PROJECT_VERSION}-mingw32)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/archive)
set(CPACK_VERBATIM_VARIABLES ON)
set(archive ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.zip)
include(CPack)
# Names beyond ASCII are lost where the locale knows ASCII only.
if(NOT CMAKE_HOST_WIN32)
    set(with_utf8 ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8)
endif()
add_custom_command(OUTPUT ${archive}
    COMMAND ${with_utf8} ${CMAKE_CPACK_COMMAND} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
    DEPENDS ${CMAKE_BINARY_DIR}/sdk.stamp
    COMMENT "Packing the SDK"
    VERBATIM)
add_custom_target(archive ALL DEPENDS ${archive})
