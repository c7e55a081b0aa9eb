// The key click as it would be heard: SDL's own sound driver writes what goes to the loudspeaker into a file.
#include <SDL_mixer.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "ostrel/input.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"

namespace {

using namespace std::chrono_literals;

constexpr char kClickFile[] = OSTREL_SOURCE_DIR "/samples/launcher/sounds/key.wav";
constexpr std::size_t kWavHeader = 44;
constexpr int kRate = 44100;
constexpr int kStereo = 2;

// SDL computes with fractions where one loudspeaker becomes two, and other processors round them their own way.
#ifdef __x86_64__
constexpr int kRounding = 0;
#else
constexpr int kRounding = 1;
#endif

using Samples = std::vector<int16_t>;

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Samples samplesIn(const std::string& bytes) {
    Samples samples(bytes.size() / sizeof(int16_t));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(int16_t));
    return samples;
}

// The samples of the click, which is for one loudspeaker, as they come out of two.
Samples clickInStereo() {
    Samples samples;
    for (const int16_t sample : samplesIn(bytesOf(kClickFile).substr(kWavHeader)))
        samples.insert(samples.end(), kStereo, sample);
    return samples;
}

// Takes the click out of what was heard, wherever it is, and counts how often it was there.
int takeOut(const Samples& click, Samples& heard) {
    const auto sameSound = [](int16_t one, int16_t other) { return std::abs(one - other) <= kRounding; };
    const auto length = static_cast<std::ptrdiff_t>(click.size());
    int count = 0;
    for (auto at = heard.begin();; ++count) {
        at = std::search(at, heard.end(), click.begin(), click.end(), sameSound);
        if (at == heard.end()) return count;
        at = heard.erase(at, at + length);
    }
}

bool isSilence(const Samples& samples) {
    return std::all_of(samples.begin(), samples.end(), [](int16_t sample) { return sample == 0; });
}

class KeyClickSoundTest : public ostreltest::DeviceTest {
protected:
    KeyClickSoundTest() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", device().path("heard.raw").c_str(), 1);
        EXPECT_EQ(Mix_OpenAudio(kRate, AUDIO_S16LSB, kStereo, 512), 0) << SDL_GetError();
        mClick = Mix_LoadWAV(kClickFile);
        EXPECT_NE(mClick, nullptr) << SDL_GetError();
        gKeyChunk = mClick;
    }
    ~KeyClickSoundTest() override {
        gKeyChunk = nullptr;
        Mix_FreeChunk(mClick);
        Mix_CloseAudio();
    }

    // Lets the queued events act, and the sound they make come to its end.
    static void letItSound() {
        while (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE) wait_event(nullptr);
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        do {
            std::this_thread::sleep_for(50ms);
        } while (Mix_Playing(-1) != 0 && std::chrono::steady_clock::now() < deadline);
    }
    void pressA() {
        mPad.press(1);
        mPad.release(1);
        letItSound();
    }
    // All that left the machine. Nothing sounds any more after this.
    Samples heard() {
        Mix_CloseAudio();
        return samplesIn(bytesOf(device().path("heard.raw")));
    }
    ostreltest::VirtualJoystick& pad() { return mPad; }

private:
    ostreltest::VirtualJoystick mPad;
    Mix_Chunk* mClick = nullptr;
};

TEST_F(KeyClickSoundTest, AButtonIsHeardOnceSampleBySample) {
    pressA();
    Samples sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 1);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, ADirectionIsHeardAtItsPressAndNotAtItsRelease) {
    pad().hat(SDL_HAT_DOWN);
    letItSound();
    pad().hat(SDL_HAT_CENTERED);
    letItSound();
    Samples sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 1);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, EveryPressIsHeard) {
    for (int press = 0; press < 3; ++press) pressA();
    Samples sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 3);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, WithTheKeyToneOffThereIsSilence) {
    gKeyChunk = nullptr;
    pressA();
    const Samples sound = heard();
    EXPECT_GT(sound.size(), 0U);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, TheKeyboardIsSilent) {
    ostreltest::pushKey(SDL_KEYDOWN, SDLK_DOWN);
    letItSound();
    const Samples sound = heard();
    EXPECT_GT(sound.size(), 0U);
    EXPECT_TRUE(isSilence(sound));
}

}  // namespace
