# Runs in cpack, on the tree of the three components that is about to be packed.

# Policy asks for compressed manual pages and changelogs; other installations keep them as they are. No name and no time
# goes into the compressed file (-n), so that the same text gives the same bytes.
file(GLOB_RECURSE docs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
list(FILTER docs INCLUDE REGEX "/(man/man[1-9]/[^/]+[.][1-9]|doc/[^/]+/changelog(.Debian)?)$")
foreach(doc IN LISTS docs)
    execute_process(COMMAND gzip -9n ${doc} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# The names that programs link to, resolved for this processor. A name that came or went without its line in the list
# ends the making of packages (-c4).
file(GLOB_RECURSE library ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/runtime/*/libostrel.so.*.*)
execute_process(
    COMMAND dpkg-gensymbols -c4 -q -p${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} -v${CPACK_PACKAGE_VERSION}
        -a${CPACK_DEBIAN_PACKAGE_ARCHITECTURE} -e${library} -I${CPACK_OSTREL_SYMBOLS_LIST} -O${CPACK_OSTREL_SYMBOLS}
    COMMAND_ERROR_IS_FATAL ANY)
