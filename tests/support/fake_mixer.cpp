#include "support/fake_mixer.h"

#include <mutex>

#include "support/next_function.h"

namespace {

using ostreltest::nextFunction;

struct MixerState {
    std::mutex lock;  // the key-repeat thread clicks too
    bool faked = false;
    bool open = true;
    std::string playError;
    std::vector<std::string> calls;
    Mix_Chunk* lastChunk = nullptr;
};

MixerState& mixerState() {
    static auto* instance = new MixerState;
    return *instance;
}

}  // namespace

// The library binds to these, because a program's definitions come before those of its libraries.
int Mix_QuerySpec(int* frequency, Uint16* format, int* channels) {
    {
        MixerState& mixer = mixerState();
        const std::lock_guard<std::mutex> guard(mixer.lock);
        if (mixer.faked) return mixer.open ? 1 : 0;
    }
    return nextFunction<decltype(Mix_QuerySpec)>("Mix_QuerySpec")(frequency, format, channels);
}

int Mix_HaltChannel(int channel) {
    {
        MixerState& mixer = mixerState();
        const std::lock_guard<std::mutex> guard(mixer.lock);
        if (mixer.faked) {
            mixer.calls.push_back("halt " + std::to_string(channel));
            return 0;
        }
    }
    return nextFunction<decltype(Mix_HaltChannel)>("Mix_HaltChannel")(channel);
}

int Mix_PlayChannelTimed(int channel, Mix_Chunk* chunk, int loops, int ticks) {
    {
        MixerState& mixer = mixerState();
        const std::lock_guard<std::mutex> guard(mixer.lock);
        if (mixer.faked) {
            mixer.calls.push_back("play " + std::to_string(channel) + " " + std::to_string(loops) + " " +
                                  std::to_string(ticks));
            mixer.lastChunk = chunk;
            return mixer.playError.empty() ? 0 : SDL_SetError("%s", mixer.playError.c_str());
        }
    }
    return nextFunction<decltype(Mix_PlayChannelTimed)>("Mix_PlayChannelTimed")(channel, chunk, loops, ticks);
}

namespace ostreltest {

FakeMixer::FakeMixer() {
    MixerState& mixer = mixerState();
    const std::lock_guard<std::mutex> guard(mixer.lock);
    mixer.faked = true;
    mixer.open = true;
    mixer.playError.clear();
    mixer.calls.clear();
    mixer.lastChunk = nullptr;
}

FakeMixer::~FakeMixer() {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    mixerState().faked = false;
}

void FakeMixer::close() {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    mixerState().open = false;
}

void FakeMixer::failPlaying(const std::string& error) {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    mixerState().playError = error;
}

std::vector<std::string> FakeMixer::calls() const {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    return mixerState().calls;
}

Mix_Chunk* FakeMixer::lastChunk() const {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    return mixerState().lastChunk;
}

void FakeMixer::clear() {
    const std::lock_guard<std::mutex> guard(mixerState().lock);
    mixerState().calls.clear();
}

}  // namespace ostreltest
