# What `cmake --install` lays out: headers, library, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ostrel DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(TARGETS ostrel EXPORT ostrel-targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)

list(JOIN OSTREL_PUBLIC_MODULES " " OSTREL_PC_REQUIRES)
set(OSTREL_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ostrel)
install(EXPORT ostrel-targets NAMESPACE ostrel:: DESTINATION ${OSTREL_CMAKE_DIR} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ostrel-config.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/ostrel-config.cmake INSTALL_DESTINATION ${OSTREL_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ostrel-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ostrel-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/ostrel-config-version.cmake
    DESTINATION ${OSTREL_CMAKE_DIR} COMPONENT dev)

# The prefix is found from where the file lies, so that a tree installed elsewhere (cmake --install --prefix) works too.
file(RELATIVE_PATH OSTREL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/ostrel.pc.in ${CMAKE_CURRENT_BINARY_DIR}/ostrel.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ostrel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
