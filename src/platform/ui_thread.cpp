#include "platform/ui_thread.h"

#include <atomic>
#include <thread>

namespace ostrel {
namespace {

std::atomic<std::thread::id> sUiThread{};

}  // namespace

void bindUiThread() { sUiThread = std::this_thread::get_id(); }

void releaseUiThread() { sUiThread = std::thread::id{}; }

bool isUiThread() {
    const std::thread::id bound = sUiThread;
    return bound == std::thread::id{} || bound == std::this_thread::get_id();
}

}  // namespace ostrel
