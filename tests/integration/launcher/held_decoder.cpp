#include "held_decoder.h"

#include <dlfcn.h>

#include <SDL_image.h>

#include <condition_variable>
#include <mutex>
#include <utility>

namespace {

std::mutex sMutex;
std::condition_variable sChanged;
bool sHeld = false;
int sWaiting = 0;
std::vector<int> sWidths;

void waitWhileHeld() {
    std::unique_lock<std::mutex> lock(sMutex);
    ++sWaiting;
    sChanged.notify_all();
    sChanged.wait(lock, [] { return !sHeld; });
    --sWaiting;
}

void setHeld(bool held) {
    const std::lock_guard<std::mutex> lock(sMutex);
    sHeld = held;
    sChanged.notify_all();
}

}  // namespace

// The program's own definition comes before SDL_image's.
extern "C" SDL_Surface* IMG_LoadPNG_RW(SDL_RWops* stream) {
    using Decoder = SDL_Surface* (*)(SDL_RWops*);
    static const auto kDecode = reinterpret_cast<Decoder>(dlsym(RTLD_NEXT, "IMG_LoadPNG_RW"));
    waitWhileHeld();
    SDL_Surface* picture = kDecode(stream);
    const std::lock_guard<std::mutex> lock(sMutex);
    sWidths.push_back(picture == nullptr ? 0 : picture->w);
    return picture;
}

namespace launchertest {

HeldDecoder::HeldDecoder() { setHeld(true); }

HeldDecoder::~HeldDecoder() { letGo(); }

void HeldDecoder::awaitDecoding() const {
    std::unique_lock<std::mutex> lock(sMutex);
    sChanged.wait(lock, [] { return sWaiting > 0; });
}

void HeldDecoder::letGo() const { setHeld(false); }

std::vector<int> takeDecodedWidths() {
    const std::lock_guard<std::mutex> lock(sMutex);
    return std::exchange(sWidths, {});
}

}  // namespace launchertest
