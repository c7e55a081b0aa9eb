#include "window/key_click.h"

#include "ostrel/input.h"
#include "ostrel/log.h"

Mix_Chunk* gKeyChunk = nullptr;

namespace ostrel {
namespace {

constexpr int kAnyChannel = -1;
constexpr int kFailed = -1;

// The mixer's own functions crash when the host has not opened a sound device.
bool mixerIsOpen() {
    if (Mix_QuerySpec(nullptr, nullptr, nullptr) != 0) return true;
    SDL_SetError("Audio device hasn't been opened");
    return false;
}

int playOnce(Mix_Chunk* chunk) {
    if (!mixerIsOpen()) return kFailed;
    Mix_HaltChannel(kAnyChannel);
    return Mix_PlayChannelTimed(kAnyChannel, chunk, /*loops=*/0, /*ticks=*/-1);
}

}  // namespace

void playKeyClick() {
    // The host may switch the key tone off while the repeat thread is about to click.
    Mix_Chunk* chunk = __atomic_load_n(&gKeyChunk, __ATOMIC_ACQUIRE);
    if (chunk == nullptr) return;
    if (playOnce(chunk) == kFailed) tprintf("Mix_PlayChunk: %s\n", SDL_GetError());
}

}  // namespace ostrel
