// The key click as it would be heard: SDL's own sound driver writes what goes to the loudspeaker into a file.
#include <SDL_mixer.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "ostrel/input.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"

namespace {

using namespace std::chrono_literals;

constexpr char kClickFile[] = OSTREL_SOURCE_DIR "/samples/launcher/sounds/key.wav";
constexpr std::size_t kWavHeader = 44;
constexpr int kRate = 44100;
constexpr int kStereo = 2;

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The samples of the click, which are 16 bits wide and for one loudspeaker, as they come out of two.
std::string clickInStereo() {
    const std::string file = bytesOf(kClickFile);
    std::string samples;
    for (std::size_t i = kWavHeader; i + 1 < file.size(); i += 2) {
        for (int side = 0; side < kStereo; ++side) samples.append(file, i, 2);
    }
    return samples;
}

// Takes the click out of what was heard, wherever it is, and counts how often it was there.
int takeOut(const std::string& click, std::string& heard) {
    int count = 0;
    for (std::size_t at = heard.find(click); at != std::string::npos; at = heard.find(click, at)) {
        heard.erase(at, click.size());
        ++count;
    }
    return count;
}

bool isSilence(const std::string& samples) {
    return std::all_of(samples.begin(), samples.end(), [](char byte) { return byte == 0; });
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
    std::string heard() {
        Mix_CloseAudio();
        return bytesOf(device().path("heard.raw"));
    }
    ostreltest::VirtualJoystick& pad() { return mPad; }

private:
    ostreltest::VirtualJoystick mPad;
    Mix_Chunk* mClick = nullptr;
};

}  // namespace

TEST_F(KeyClickSoundTest, AButtonIsHeardOnceSampleBySample) {
    pressA();
    std::string sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 1);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, ADirectionIsHeardAtItsPressAndNotAtItsRelease) {
    pad().hat(SDL_HAT_DOWN);
    letItSound();
    pad().hat(SDL_HAT_CENTERED);
    letItSound();
    std::string sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 1);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, EveryPressIsHeard) {
    for (int press = 0; press < 3; ++press) pressA();
    std::string sound = heard();
    EXPECT_EQ(takeOut(clickInStereo(), sound), 3);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, WithTheKeyToneOffThereIsSilence) {
    gKeyChunk = nullptr;
    pressA();
    const std::string sound = heard();
    EXPECT_GT(sound.size(), 0U);
    EXPECT_TRUE(isSilence(sound));
}

TEST_F(KeyClickSoundTest, TheKeyboardIsSilent) {
    ostreltest::pushKey(SDL_KEYDOWN, SDLK_DOWN);
    letItSound();
    const std::string sound = heard();
    EXPECT_GT(sound.size(), 0U);
    EXPECT_TRUE(isSilence(sound));
}
