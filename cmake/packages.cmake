# The Debian packages that `cpack -G DEB` makes of an installation: library, development files, launcher. The component
# names are those of the install rules. scripts/package.sh calls it with the settings of a release.
if(NOT TARGET ostrel-launcher)
    return()
endif()
find_program(DPKG dpkg)
if(NOT DPKG)
    return()
endif()

set(OSTREL_LIBRARY_PACKAGE libostrel${OSTREL_ABI_VERSION})
set(OSTREL_PACKAGE_DIR ${PROJECT_SOURCE_DIR}/packaging)
foreach(component runtime dev launcher)
    string(TOUPPER ${component} key)
    set(package_of_runtime ${OSTREL_LIBRARY_PACKAGE})
    set(package_of_dev libostrel-dev)
    set(package_of_launcher ostrel-launcher)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package_of_${component}})
    set(doc_dir ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package_of_${component}})
    install(FILES ${OSTREL_PACKAGE_DIR}/copyright DESTINATION ${doc_dir} COMPONENT ${component})
    install(FILES ${OSTREL_PACKAGE_DIR}/changelog DESTINATION ${doc_dir} COMPONENT ${component} RENAME changelog.Debian)
    install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${doc_dir} COMPONENT ${component} RENAME changelog)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime dev launcher)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/prepare_packages.cmake)
set(CPACK_OSTREL_SYMBOLS_LIST ${OSTREL_PACKAGE_DIR}/${OSTREL_LIBRARY_PACKAGE}.symbols)
set(CPACK_OSTREL_SYMBOLS ${PROJECT_BINARY_DIR}/packaging/symbols)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Ostrel developers <ostrel@example.org>")
set(CPACK_DEBIAN_PACKAGE_SOURCE ostrel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(package_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

# dpkg of this machine answers for this machine; a cross build names its processor.
if(CMAKE_CROSSCOMPILING)
    set(architecture_of_x86_64 amd64)
    set(architecture_of_aarch64 arm64)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${architecture_of_${CMAKE_SYSTEM_PROCESSOR}})
else()
    execute_process(COMMAND ${DPKG} --print-architecture OUTPUT_VARIABLE CPACK_DEBIAN_PACKAGE_ARCHITECTURE
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()

# What the programs need of other packages, dpkg-shlibdeps reads from them. Our own library it finds in the build tree,
# which belongs to no package, so the launcher names that one itself.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The trigger has dpkg run ldconfig once for all packages. CPack would add a postinst and a postrm that run it again,
# unless files of these names are listed; as there are none, none is packed.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${OSTREL_PACKAGE_DIR}/triggers ${CPACK_OSTREL_SYMBOLS}
    ${PROJECT_BINARY_DIR}/packaging/none/postinst ${PROJECT_BINARY_DIR}/packaging/none/postrm)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
# What our headers include, and what the pkg-config file and the CMake package look for.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${OSTREL_LIBRARY_PACKAGE} (= ${package_version}), \
libsdl2-dev, libsdl2-ttf-dev, libsdl2-mixer-dev, libcjson-dev")
# Not "games", whose programs Debian keeps in /usr/games, where root's PATH does not lead.
set(CPACK_DEBIAN_LAUNCHER_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_LAUNCHER_PACKAGE_DEPENDS "${OSTREL_LIBRARY_PACKAGE} (>= ${PROJECT_VERSION}), fonts-wqy-microhei, tzdata")

# CPack would put the project's own line in front of each.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "user-interface toolkit of a handheld game console
Ostrel owns the screen and the input of a launcher: it reads the game-pad,
keeps a stack of windows, draws lists, menus, dialogs and status bars with
the images of a theme, and searches titles by pinyin initials.

This package holds the shared library.")
set(CPACK_DEBIAN_DEV_DESCRIPTION "user-interface toolkit of a handheld game console (development files)
Ostrel owns the screen and the input of a launcher: it reads the game-pad,
keeps a stack of windows, draws lists, menus, dialogs and status bars with
the images of a theme, and searches titles by pinyin initials.

This package holds the headers, the CMake package and the pkg-config file.")
set(CPACK_DEBIAN_LAUNCHER_DESCRIPTION "launcher of a handheld game console
Shows games by system with their box art, finds them by letters and by
pinyin initials, lists what was played last and shows the settings and the
state of the console, in two themes and six languages. A game-pad or the
keys of a keyboard lead through it.

The games that come with it are samples: a few lines of text each, with a
poster.")

include(CPack)
