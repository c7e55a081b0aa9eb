// Shows the window that is typed at, with whatever drivers the environment names, and tells what stands in it.
//   ostrel_typed_window DEVICE_ROOT      run in a directory with regular.ttf
#include <cstdio>

#include "ostrel/device_root.h"
#include "typed_window.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    setDeviceRoot(argv[1]);
    const bool opened = ostreltest::runTypedWindow([](const std::string& keys) {
        std::printf("shown:%s.\n", keys.c_str());
        std::fflush(stdout);
    });
    return opened ? 0 : 1;
}
