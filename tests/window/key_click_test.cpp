#include "support/fake_mixer.h"
#include "window/input_test.h"

namespace {

using ostreltest::LogCapture;
using ostreltest::pushKey;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeyClickTest : public ostreltest::InputTest {
protected:
    KeyClickTest() { gKeyChunk = &mChunk; }
    ostreltest::FakeMixer& mixer() { return mMixer; }
    Mix_Chunk* chunk() { return &mChunk; }

private:
    Mix_Chunk mChunk{};
    ostreltest::FakeMixer mMixer;
};

TEST_F(KeyClickTest, PressedButtonSilencesEveryChannelAndClicksOnce) {
    press(0);
    EXPECT_THAT(mixer().calls(), ElementsAre("halt -1", "play -1 0 -1"));
    EXPECT_EQ(mixer().lastChunk(), chunk());
}

TEST_F(KeyClickTest, ModifierButtonClicksToo) {
    press(7);
    EXPECT_THAT(mixer().calls(), ElementsAre("halt -1", "play -1 0 -1"));
}

TEST_F(KeyClickTest, ReleasedButtonDoesNotClick) {
    press(0);
    mixer().clear();
    release(0);
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, PressedHatClicks) {
    hat(SDL_HAT_UP);
    EXPECT_THAT(mixer().calls(), ElementsAre("halt -1", "play -1 0 -1"));
}

TEST_F(KeyClickTest, DiagonalOfTheHatClicksThoughItGivesNoKey) {
    hat(SDL_HAT_LEFTUP);
    EXPECT_THAT(mixer().calls(), ElementsAre("halt -1", "play -1 0 -1"));
}

TEST_F(KeyClickTest, CentredHatDoesNotClick) {
    hat(SDL_HAT_UP);
    mixer().clear();
    hat(SDL_HAT_CENTERED);
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, PowerKeyClicks) {
    keyDown(SDLK_POWER);
    EXPECT_THAT(mixer().calls(), ElementsAre("halt -1", "play -1 0 -1"));
}

TEST_F(KeyClickTest, RepeatAndReleaseOfThePowerKeyDoNotClick) {
    pushKey(SDL_KEYDOWN, SDLK_POWER, /*repeat=*/true);
    pushKey(SDL_KEYUP, SDLK_POWER);
    keys();
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, NoOtherKeyOfTheKeyboardClicks) {
    for (const SDL_Keycode symbol : {SDLK_UP, SDLK_SPACE, SDLK_RETURN, SDLK_ESCAPE, SDLK_LCTRL}) keyDown(symbol);
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, SticksAndUserEventsDoNotClick) {
    axis(0, 32767);
    ostreltest::pushUser(5);
    keys();
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, WithoutAChunkKeysAreSilent) {
    gKeyChunk = nullptr;
    press(0);
    EXPECT_THAT(mixer().calls(), IsEmpty());
}

TEST_F(KeyClickTest, FailedPlayIsLogged) {
    mixer().failPlaying("no free channel");
    LogCapture log;
    press(0);
    EXPECT_EQ(log.text(), "Mix_PlayChunk: no free channel\n");
}

TEST_F(KeyClickTest, KeyOfAFailedClickCounts) {
    mixer().failPlaying("no free channel");
    press(0);
    EXPECT_THAT(release(0), ElementsAre(2));
}

TEST_F(KeyClickTest, WithoutASoundDeviceNothingIsPlayedAndTheFailureIsLogged) {
    mixer().close();
    LogCapture log;
    press(0);
    EXPECT_THAT(mixer().calls(), IsEmpty());
    EXPECT_EQ(log.text(), "Mix_PlayChunk: Audio device hasn't been opened\n");
}

using KeyClickWithoutMixerTest = ostreltest::InputTest;

TEST_F(KeyClickWithoutMixerTest, HostThatNeverOpenedASoundDeviceSurvives) {
    Mix_Chunk chunk{};
    gKeyChunk = &chunk;
    LogCapture log;
    press(0);
    EXPECT_EQ(log.text(), "Mix_PlayChunk: Audio device hasn't been opened\n");
}

}  // namespace
