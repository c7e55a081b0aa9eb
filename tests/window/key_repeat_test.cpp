// The repeat of a held direction, driven step by step: the repeat thread moves only when the test wakes it.
#include <chrono>
#include <future>
#include <thread>

#include "support/before_push.h"
#include "support/fake_mixer.h"
#include "window/loop_test.h"

namespace {

using ostreltest::FakeMixer;
using ostreltest::LogCapture;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeyRepeatTest : public ostreltest::LoopTest {
protected:
    KeyRepeatTest() {
        gKeyChunk = nullptr;
        clock().set(50'000);
    }
    ~KeyRepeatTest() override { gKeyChunk = nullptr; }

    // Runs the steps inside the main loop, with the repeat thread waiting.
    template <typename Steps>
    void whileRunning(Steps steps) {
        push("only")->onEvents = [this, steps] {
            repeatWait().awaitWaiting();
            steps();
            return 1003;
        };
        run();
    }

    std::vector<int> hat(Uint8 value) {
        pad().hat(value);
        return keys();
    }
    static std::vector<int> keys() {
        std::vector<int> result;
        SDL_PumpEvents();
        while (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE) {
            const int key = wait_event(nullptr);
            if (key != 0) result.push_back(key);
        }
        return result;
    }
    // Lets that much time pass, and one wait of the thread run out. @return the keys it posted.
    std::vector<int> keysAfter(uint64_t ms) {
        clock().advance(ms);
        repeatWait().timeOut();
        return keys();
    }
};

TEST_F(KeyRepeatTest, FirstRepeatNeedsMoreThan500Ms) {
    whileRunning([this] {
        EXPECT_THAT(hat(SDL_HAT_UP), ElementsAre(5));
        EXPECT_THAT(keysAfter(500), IsEmpty());
        EXPECT_THAT(keysAfter(1), ElementsAre(5));
    });
}

TEST_F(KeyRepeatTest, LaterRepeatsNeedMoreThan30Ms) {
    whileRunning([this] {
        hat(SDL_HAT_DOWN);
        EXPECT_THAT(keysAfter(501), ElementsAre(6));
        EXPECT_THAT(keysAfter(30), IsEmpty());
        EXPECT_THAT(keysAfter(1), ElementsAre(6));
        EXPECT_THAT(keysAfter(31), ElementsAre(6));
    });
}

TEST_F(KeyRepeatTest, HeldForASecondGivesOneRepeatAtEachWakeAfter500Ms) {
    whileRunning([this] {
        std::vector<int> repeats;
        hat(SDL_HAT_RIGHT);
        for (int wake = 1; wake <= 10; ++wake) {
            for (const int key : keysAfter(100)) repeats.push_back(wake * 100 + key);
        }
        EXPECT_THAT(repeats, ElementsAre(608, 708, 808, 908, 1008));
    });
}

TEST_F(KeyRepeatTest, EveryDirectionRepeats) {
    whileRunning([this] {
        const std::pair<Uint8, int> rows[] = {
            {SDL_HAT_UP, 5}, {SDL_HAT_DOWN, 6}, {SDL_HAT_LEFT, 7}, {SDL_HAT_RIGHT, 8}};
        for (const auto& [value, key] : rows) {
            hat(value);
            EXPECT_THAT(keysAfter(501), ElementsAre(key));
            hat(SDL_HAT_CENTERED);
        }
    });
}

TEST_F(KeyRepeatTest, TwoDirectionsWithoutCentringBothRepeatInTheOrderOfTheirCodes) {
    whileRunning([this] {
        hat(SDL_HAT_RIGHT);
        hat(SDL_HAT_UP);
        EXPECT_THAT(keysAfter(501), ElementsAre(5, 8));
        hat(SDL_HAT_LEFT);
        hat(SDL_HAT_DOWN);
        EXPECT_THAT(keysAfter(501), ElementsAre(5, 6, 7, 8));
    });
}

TEST_F(KeyRepeatTest, PressedAgainWithoutCentringKeepsItsRepeats) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        keysAfter(501);
        hat(SDL_HAT_LEFT);
        hat(SDL_HAT_UP);
        EXPECT_THAT(keysAfter(31), ElementsAre(5));
    });
}

TEST_F(KeyRepeatTest, CentringStopsTheRepeat) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        keysAfter(501);
        hat(SDL_HAT_CENTERED);
        EXPECT_THAT(keysAfter(10000), IsEmpty());
    });
}

TEST_F(KeyRepeatTest, DiagonalStopsTheRepeat) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        hat(SDL_HAT_LEFTUP);
        EXPECT_THAT(keysAfter(10000), IsEmpty());
    });
}

TEST_F(KeyRepeatTest, AnyReleasedButtonStopsTheRepeat) {
    whileRunning([this] {
        for (int button = 0; button <= 8; ++button) {
            hat(SDL_HAT_UP);
            pad().press(button);
            pad().release(button);
            keys();
            EXPECT_THAT(keysAfter(10000), IsEmpty()) << button;
            hat(SDL_HAT_CENTERED);
        }
    });
}

TEST_F(KeyRepeatTest, PressedButtonDoesNotStopTheRepeat) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        pad().press(1);
        EXPECT_THAT(keysAfter(501), ElementsAre(5));
    });
}

TEST_F(KeyRepeatTest, ReleasedKeyOfTheKeyboardDoesNotStopTheRepeat) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        ostreltest::pushKey(SDL_KEYUP, SDLK_UP);
        EXPECT_THAT(keysAfter(501), ElementsAre(5));
    });
}

TEST_F(KeyRepeatTest, PressAfterAReleaseStartsOverWith500Ms) {
    whileRunning([this] {
        hat(SDL_HAT_UP);
        keysAfter(501);
        keysAfter(31);
        hat(SDL_HAT_CENTERED);
        hat(SDL_HAT_UP);
        EXPECT_THAT(keysAfter(500), IsEmpty());
        EXPECT_THAT(keysAfter(1), ElementsAre(5));
    });
}

TEST_F(KeyRepeatTest, ArrowsOfTheKeyboardAndSticksDoNotRepeat) {
    whileRunning([this] {
        ostreltest::pushKey(SDL_KEYDOWN, SDLK_UP);
        pad().axis(1, 32767);
        keys();
        EXPECT_THAT(keysAfter(10000), IsEmpty());
    });
}

TEST_F(KeyRepeatTest, RepeatIsAUserEventWithTheKeyAsItsCode) {
    whileRunning([this] {
        hat(SDL_HAT_LEFT);
        clock().advance(501);
        repeatWait().timeOut();
        SDL_Event event{};
        ASSERT_EQ(SDL_PeepEvents(&event, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT), 1);
        EXPECT_EQ(event.type, Uint32{0x8000});
        EXPECT_EQ(event.user.code, 7);
    });
}

TEST_F(KeyRepeatTest, RepeatsAreLogged) {
    whileRunning([this] {
        hat(SDL_HAT_RIGHT);
        LogCapture log;
        keysAfter(501);
        keysAfter(100);
        EXPECT_EQ(log.text(),
                  "50501 send repeat key 8, count 1, diff 501\n"
                  "50601 send repeat key 8, count 2, diff 100\n");
    });
}

TEST_F(KeyRepeatTest, SignalWakesTheThreadEarly) {
    whileRunning([this] {
        const int before = repeatWait().signals();
        hat(SDL_HAT_CENTERED);
        pad().press(0);
        pad().release(0);
        keys();
        EXPECT_EQ(repeatWait().signals(), before + 1);
        repeatWait().awaitWaiting();
    });
}

TEST_F(KeyRepeatTest, ClickSoundsOncePerPassWithRepeats) {
    FakeMixer mixer;
    Mix_Chunk chunk{};
    whileRunning([this, &mixer, &chunk] {
        hat(SDL_HAT_UP);
        hat(SDL_HAT_LEFT);
        gKeyChunk = &chunk;
        keysAfter(501);
        EXPECT_THAT(mixer.calls(), ElementsAre("halt -1", "play -1 0 -1"));
        EXPECT_EQ(mixer.lastChunk(), &chunk);
        gKeyChunk = nullptr;
    });
}

TEST_F(KeyRepeatTest, PassWithoutARepeatIsSilent) {
    FakeMixer mixer;
    Mix_Chunk chunk{};
    whileRunning([this, &mixer, &chunk] {
        hat(SDL_HAT_UP);
        gKeyChunk = &chunk;
        keysAfter(500);
        EXPECT_THAT(mixer.calls(), IsEmpty());
        gKeyChunk = nullptr;
    });
}

TEST_F(KeyRepeatTest, FailedClickOfARepeatIsLoggedAfterIt) {
    FakeMixer mixer;
    mixer.failPlaying("no free channel");
    Mix_Chunk chunk{};
    whileRunning([this, &chunk] {
        hat(SDL_HAT_UP);
        gKeyChunk = &chunk;
        LogCapture log;
        keysAfter(501);
        EXPECT_EQ(log.text(), "50501 send repeat key 5, count 1, diff 501\nMix_PlayChunk: no free channel\n");
        gKeyChunk = nullptr;
    });
}

TEST_F(KeyRepeatTest, ThreadIsNamedAndWakesEvery100Ms) {
    whileRunning([this] {
        keysAfter(0);
        keysAfter(0);
    });
    EXPECT_EQ(repeatWait().threadName(), "repeatkey");
    EXPECT_THAT(repeatWait().spans(), Each(100U));
    EXPECT_GE(repeatWait().spans().size(), 3U);
}

TEST_F(KeyRepeatTest, StartOfTheLoopForgetsWhatWasHeld) {
    hat(SDL_HAT_UP);
    whileRunning([this] { EXPECT_THAT(keysAfter(10000), IsEmpty()); });
}

TEST_F(KeyRepeatTest, PressOutsideTheLoopIsSetAndNeverConsumed) {
    LogCapture log;
    EXPECT_THAT(hat(SDL_HAT_UP), ElementsAre(5));
    hat(SDL_HAT_CENTERED);
    EXPECT_EQ(log.text(), "set repeat time 50000\nclear repeat time\n");
}

TEST_F(KeyRepeatTest, PressAtTimeZeroCountsAsNotHeld) {
    clock().set(0);
    whileRunning([this] {
        hat(SDL_HAT_UP);
        EXPECT_THAT(keysAfter(10000), IsEmpty());
    });
}

TEST_F(KeyRepeatTest, RepeatGoesOnInALoopInsideTheLoop) {
    std::vector<OstrelWindow*> inner{newWindow("inner")};
    static_cast<ostreltest::ScriptWindow*>(inner[0])->onEvents = [this] {
        repeatWait().awaitWaiting();
        hat(SDL_HAT_UP);
        EXPECT_THAT(keysAfter(501), ElementsAre(5));
        return 1003;
    };
    whileRunning([this, &inner] {
        runWindows(inner);
        hat(SDL_HAT_DOWN);
        EXPECT_THAT(keysAfter(501), ElementsAre(5, 6));
    });
}

TEST_F(KeyRepeatTest, ThreadEndsWithTheLoopAndStartsWithTheNext) {
    for (int i = 0; i < 3; ++i) {
        LogCapture log;
        whileRunning([this] {
            hat(SDL_HAT_UP);
            EXPECT_THAT(keysAfter(501), ElementsAre(5));
            hat(SDL_HAT_CENTERED);
        });
        EXPECT_EQ(log.lines().back(), "deinit check_repeat_thread");
    }
}

// The thread is caught while it posts, its tables locked.
TEST_F(KeyRepeatTest, ReleaseDoesNotWaitForTheThread) {
    std::promise<void> posting;
    std::promise<void> released;
    auto waited = std::future_status::timeout;
    const ostreltest::BeforePush halt([&] {
        posting.set_value();
        waited = released.get_future().wait_for(std::chrono::seconds(10));
    });
    whileRunning([&] {
        hat(SDL_HAT_UP);
        clock().advance(501);
        repeatWait().letTimeOut();
        posting.get_future().wait();
        hat(SDL_HAT_CENTERED);
        released.set_value();
        repeatWait().awaitWaiting();
    });
    EXPECT_EQ(waited, std::future_status::ready);
}

// Given time, an SDL that ends under the thread's feet would be gone when it goes on.
TEST_F(KeyRepeatTest, SdlEndsWhenTheThreadHasPosted) {
    std::promise<void> posting;
    std::promise<void> ending;
    Uint32 running = 0;
    const ostreltest::BeforePush halt([&] {
        posting.set_value();
        ending.get_future().wait();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        running = SDL_WasInit(SDL_INIT_EVENTS);
    });
    whileRunning([&] {
        hat(SDL_HAT_UP);
        clock().advance(501);
        SDL_Event quit{};
        quit.type = SDL_QUIT;
        SDL_PushEvent(&quit);
        repeatWait().letTimeOut();
        posting.get_future().wait();
        ending.set_value();
        keys();
        EXPECT_EQ(SDL_WasInit(SDL_INIT_EVENTS), 0U);
    });
    EXPECT_NE(running, 0U);
}

// The thread is in the middle of a pass while the direction is let go: whatever it writes then must not count.
TEST_F(KeyRepeatTest, NoKeyComesBackToLifeAfterItsRelease) {
    whileRunning([this] {
        for (int round = 0; round < 200; ++round) {
            hat(SDL_HAT_UP);
            clock().advance(501);
            std::thread waker([this] { repeatWait().timeOut(); });
            hat(SDL_HAT_CENTERED);
            waker.join();
            keys();
            ASSERT_THAT(keysAfter(501), IsEmpty()) << round;
        }
    });
}

}  // namespace
