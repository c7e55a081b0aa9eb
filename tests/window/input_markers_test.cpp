// Marker files of other programs, devices that come and go, the raw event, and the end of SDL.
#include "support/fake_host.h"
#include "support/fake_mixer.h"
#include "window/input_test.h"

namespace {

using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::pushKey;
using ostreltest::pushUser;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputMarkerTest : public ostreltest::InputTest {
protected:
    void grab() { device().write("/tmp/ostrel_inputd/grab", ""); }
    void ungrab() { device().remove("/tmp/ostrel_inputd/grab"); }
    void showDisplay() { device().write("/tmp/osdd_show_up", ""); }

    static SDL_Event filledEvent() {
        SDL_Event event;
        SDL_memset(&event, 0x5a, sizeof event);
        return event;
    }
};

TEST_F(InputMarkerTest, GrabForgetsAHeldStart) {
    press(7);
    grab();
    press(4);
    EXPECT_THAT(release(4), ElementsAre(12));
}

TEST_F(InputMarkerTest, EndOfAGrabForgetsAHeldSelect) {
    grab();
    wait_event(nullptr);
    press(6);
    ungrab();
    press(5);
    EXPECT_THAT(release(5), ElementsAre(13));
}

TEST_F(InputMarkerTest, GrabForgetsACombo) {
    press(7), press(4);
    grab();
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_THAT(release(7), ElementsAre(9));
}

TEST_F(InputMarkerTest, LastingGrabKeepsModifiersAndInput) {
    grab();
    wait_event(nullptr);
    press(7), press(4);
    EXPECT_THAT(release(4), IsEmpty());
    EXPECT_THAT(release(7), IsEmpty());
}

TEST_F(InputMarkerTest, GrabIsSeenWithNothingPending) {
    press(7);
    grab();
    wait_event(nullptr);
    ungrab();
    press(4);
    EXPECT_THAT(release(4), ElementsAre(12));
}

TEST_F(InputMarkerTest, DisplayTakesEveryEvent) {
    showDisplay();
    pushUser(5);
    pushKey(SDL_KEYDOWN, SDLK_UP);
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(wait_event(nullptr), 0);
    device().remove("/tmp/osdd_show_up");
    EXPECT_EQ(wait_event(nullptr), 0);
}

TEST_F(InputMarkerTest, DisplayLeavesTheRawEventAlone) {
    showDisplay();
    pushUser(5);
    SDL_Event out = filledEvent();
    const SDL_Event before = out;
    wait_event(&out);
    EXPECT_EQ(SDL_memcmp(&out, &before, sizeof out), 0);
}

TEST_F(InputMarkerTest, DisplayKeepsPressesFromCountingAsModifiersAndRepeats) {
    showDisplay();
    LogCapture log;
    press(7);
    hat(SDL_HAT_UP);
    EXPECT_EQ(log.text(), "");
    device().remove("/tmp/osdd_show_up");
    press(4);
    EXPECT_THAT(release(4), ElementsAre(12));
}

TEST_F(InputMarkerTest, DisplaySilencesTheClick) {
    ostreltest::FakeMixer mixer;
    Mix_Chunk chunk{};
    gKeyChunk = &chunk;
    showDisplay();
    press(0);
    EXPECT_THAT(mixer.calls(), IsEmpty());
}

TEST_F(InputMarkerTest, DisplayKeepsTheQuitEventFromShuttingSdlDown) {
    showDisplay();
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_NE(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
}

TEST_F(InputMarkerTest, RawEventIsCopiedOut) {
    pushKey(SDL_KEYDOWN, SDLK_UP, /*repeat=*/true);
    SDL_Event out{};
    EXPECT_EQ(wait_event(&out), 5);
    EXPECT_EQ(out.type, Uint32{SDL_KEYDOWN});
    EXPECT_EQ(out.key.keysym.sym, SDLK_UP);
    EXPECT_EQ(out.key.repeat, 1);
}

TEST_F(InputMarkerTest, RawEventIsCopiedOutWhenItGivesNoKey) {
    SDL_Event event{};
    event.type = SDL_MOUSEBUTTONDOWN;
    event.button.x = 17;
    SDL_PushEvent(&event);
    SDL_Event out{};
    EXPECT_EQ(wait_event(&out), 0);
    EXPECT_EQ(out.type, Uint32{SDL_MOUSEBUTTONDOWN});
    EXPECT_EQ(out.button.x, 17);
}

TEST_F(InputMarkerTest, RawEventKeepsTheDataOfAUserEvent) {
    int data = 0;
    pushUser(26, &data);
    SDL_Event out{};
    EXPECT_EQ(wait_event(&out), 26);
    EXPECT_EQ(out.user.data1, &data);
}

TEST_F(InputMarkerTest, NothingPendingLeavesTheRawEventAlone) {
    SDL_Event out = filledEvent();
    const SDL_Event before = out;
    wait_event(&out);
    EXPECT_EQ(SDL_memcmp(&out, &before, sizeof out), 0);
}

TEST_F(InputMarkerTest, NewGamePadOpensTheJoystickAgain) {
    SDL_Event event{};
    event.type = SDL_CONTROLLERDEVICEADDED;
    event.cdevice.which = 3;
    SDL_PushEvent(&event);
    LogCapture log;
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(log.text(), "joystick add 3\n");
    EXPECT_EQ(host().joystickStarts, 1);
}

TEST_F(InputMarkerTest, LostGamePadOpensTheJoystickAgain) {
    SDL_Event event{};
    event.type = SDL_CONTROLLERDEVICEREMOVED;
    event.cdevice.which = 2;
    SDL_PushEvent(&event);
    LogCapture log;
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(log.text(), "joystick remove 2\n");
    EXPECT_EQ(host().joystickStarts, 1);
}

TEST_F(InputMarkerTest, QuitEventShutsSdlDown) {
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    SDL_Event out{};
    EXPECT_EQ(wait_event(&out), 0);
    EXPECT_EQ(out.type, Uint32{SDL_QUIT});
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_EQ(wait_event(nullptr), 0);
}

}  // namespace
