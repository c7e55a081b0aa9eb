// Every test program runs headless, whatever the machine has: no display, sound card or graphics processor is touched.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/forked_tests.h"

int main(int argc, char** argv) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    setenv("SDL_JOYSTICK_ALLOW_BACKGROUND_EVENTS", "1", 1);
    ::testing::InitGoogleMock(&argc, argv);
    return ostreltest::areTestsForked() ? ostreltest::runTestsForked() : RUN_ALL_TESTS();
}
