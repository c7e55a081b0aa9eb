function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
    endif()
endfunction()

# A build for another processor: its compiler, its libraries for pkg-config too, and what runs its programs here.
if(TOOLCHAIN)
    include(${TOOLCHAIN})
    set(toolchain -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()

file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})

# The host's files as installed, nothing else: a header missing from the installation fails here.
run(${CMAKE_COMMAND} -S ${HOST} -B ${WORK}/build -G Ninja -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=${FLAGS}
    -DCMAKE_PREFIX_PATH=${prefix} ${toolchain})
run(${CMAKE_COMMAND} --build ${WORK}/build)
set(features ${WORK}/device/usr/ostrel/features.json)
file(WRITE ${features} "{\"bluetooth\": 0, \"bluetooth.ch.lang\": 1}")
foreach(order after before)
    run(${EMULATOR} ${WORK}/build/host_cjson_${order} ${WORK}/device ${order})
endforeach()

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs ostrel OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_STRIP_TRAILING_WHITESPACE)
separate_arguments(flags UNIX_COMMAND "${flags} ${FLAGS}")
run(${CXX} -std=c++17 ${HOST}/host.cpp -o ${WORK}/host_pkg_config ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
run(${EMULATOR} ${WORK}/host_pkg_config ${WORK}/device after)
