// A JSON library that runs out of memory.
#pragma once
#include <cjson/cJSON.h>

#include <climits>
#include <cstddef>
#include <cstdlib>

namespace ostreltest {

// While it lives, every request but the first few fails, or just one.
class ShortMemory {
public:
    static constexpr int kForEver = INT_MAX;
    explicit ShortMemory(int granted, int refused = kForEver) {
        sGranted = granted;
        sRefused = refused;
        cJSON_Hooks hooks = {allocate, std::free};
        cJSON_InitHooks(&hooks);
    }
    ~ShortMemory() { cJSON_InitHooks(nullptr); }
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;

private:
    static void* allocate(std::size_t size) {
        if (sGranted-- > 0) return std::malloc(size);
        return sRefused-- > 0 ? nullptr : std::malloc(size);
    }
    static inline int sGranted = 0;
    static inline int sRefused = 0;
};

}  // namespace ostreltest
