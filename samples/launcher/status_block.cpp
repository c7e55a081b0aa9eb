#include "status_block.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace launcher {
namespace {

constexpr mode_t kForAllOfTheUser = 0600;

// Other programs may have mapped the file: it only ever grows. An access behind its end would be the end of us.
bool isLargeEnough(int file) {
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    return status.st_size >= static_cast<off_t>(sizeof(ShmInfo)) || ftruncate(file, sizeof(ShmInfo)) == 0;
}

}  // namespace

static_assert(sizeof(ShmInfo) == 21 * sizeof(int) && std::atomic<int>::is_always_lock_free,
              "the file holds plain ints");

ShmInfo* mapStatusBlock(const std::string& file) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(file).parent_path(), ignored);
    const int block = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kForAllOfTheUser);
    if (block < 0) return nullptr;
    void* memory = MAP_FAILED;
    if (isLargeEnough(block)) memory = mmap(nullptr, sizeof(ShmInfo), PROT_READ | PROT_WRITE, MAP_SHARED, block, 0);
    close(block);  // the mapping stays
    return memory == MAP_FAILED ? nullptr : static_cast<ShmInfo*>(memory);
}

}  // namespace launcher
