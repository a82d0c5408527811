# The kit as its users get it: cmake --install build --prefix DIR, and a copy in build/sdk after every build.
include(CMakePackageConfigHelpers)

set(sdk_targets hge hgehelp drill2d)
install(TARGETS ${sdk_targets} EXPORT drill2d
    RUNTIME DESTINATION bin
    ARCHIVE DESTINATION lib)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/drill2d DESTINATION include FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${CMAKE_SOURCE_DIR}/hge/include/ DESTINATION include/hge FILES_MATCHING PATTERN "*.h")
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION .)

set(package_dir lib/cmake/drill2d)
install(EXPORT drill2d NAMESPACE drill2d:: FILE drill2dTargets.cmake DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/drill2dConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfig.cmake INSTALL_DESTINATION ${package_dir})
# Before 1.0 a minor version may change the interface.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/drill2dConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/drill2dConfigVersion.cmake
    DESTINATION ${package_dir})

file(GLOB sdk_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/drill2d/*.h ${CMAKE_SOURCE_DIR}/hge/include/*.h)
set(sdk ${CMAKE_BINARY_DIR}/sdk)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/sdk.stamp
    # A header that is gone must not live on in the tree.
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${sdk}
    COMMAND ${CMAKE_COMMAND} -DCMAKE_INSTALL_PREFIX=${sdk} -DCMAKE_INSTALL_MESSAGE=NEVER
            -P ${CMAKE_BINARY_DIR}/cmake_install.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/sdk.stamp
    DEPENDS ${sdk_targets} ${sdk_headers}
    COMMENT "Installing into build/sdk"
    VERBATIM)
add_custom_target(sdk ALL DEPENDS ${CMAKE_BINARY_DIR}/sdk.stamp)
