// The sound mixer as a test sees it. While a FakeMixer lives, the mixer calls behind the key click, the library's own
// included, are recorded and answered here; without one they are the real thing.
#pragma once
#include <SDL_mixer.h>

#include <string>
#include <vector>

namespace ostreltest {

class FakeMixer {
public:
    FakeMixer();
    ~FakeMixer();
    FakeMixer(const FakeMixer&) = delete;
    FakeMixer& operator=(const FakeMixer&) = delete;

    void close();                                // as if no sound device were open
    void failPlaying(const std::string& error);  // every play fails with this error
    std::vector<std::string> calls() const;      // "halt CHANNEL", "play CHANNEL LOOPS TICKS", in order
    Mix_Chunk* lastChunk() const;                // what the last play was given
    void clear();                                // forgets the calls
};

}  // namespace ostreltest
