// What is behind a function that a test program defines in place of the library's, SDL's or the system's own.
#pragma once
#include <dlfcn.h>

namespace ostreltest {

// The function of this name that the program would call if it did not define one itself.
template <typename Function>
Function* nextFunction(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace ostreltest
