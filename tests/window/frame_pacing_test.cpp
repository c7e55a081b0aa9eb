// How long the loop sleeps, to the microsecond.
#include <thread>

#include "window/loop_test.h"

namespace {

using ostreltest::pushUser;
using ostreltest::results;
using ostreltest::ScriptWindow;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FramePacingTest : public ostreltest::LoopTest {
protected:
    // Runs that many paced frames, each drawn in drawMs.
    std::vector<uint64_t> sleepsOf(int frames, int drawMs = 0) {
        ScriptWindow* only = push("only");
        only->onDraw = [this, drawMs] { clock().advance(static_cast<uint64_t>(drawMs)); };
        only->onEvents = results(std::vector<int>(static_cast<std::size_t>(frames), -1));
        run();
        return clock().sleeps();
    }
};

TEST_F(FramePacingTest, IdleFrameTakes100Ms) { EXPECT_THAT(sleepsOf(2), ElementsAre(100000, 100000)); }

TEST_F(FramePacingTest, TimeSpentInTheFrameIsNotSleptAgain) { EXPECT_THAT(sleepsOf(1, 37), ElementsAre(63000)); }

TEST_F(FramePacingTest, FrameOneMillisecondShortSleepsIt) { EXPECT_THAT(sleepsOf(1, 99), ElementsAre(1000)); }

TEST_F(FramePacingTest, FrameThatTookItsWholeTimeDoesNotSleep) { EXPECT_THAT(sleepsOf(1, 100), IsEmpty()); }

TEST_F(FramePacingTest, FrameThatTookLongerDoesNotSleep) { EXPECT_THAT(sleepsOf(1, 250), IsEmpty()); }

TEST_F(FramePacingTest, ClockThatWentBackwardsDoesNotSleep) {
    ScriptWindow* only = push("only");
    only->onDraw = [this] { clock().set(clock().now() - 10); };
    only->onEvents = results({-1});
    run();
    EXPECT_THAT(clock().sleeps(), IsEmpty());
}

TEST_F(FramePacingTest, BoostedFrameTakes33Ms) {
    touchBoostFps(1000);
    EXPECT_THAT(sleepsOf(3), ElementsAre(33000, 33000, 33000));
}

TEST_F(FramePacingTest, TimeSpentInABoostedFrameIsNotSleptAgain) {
    touchBoostFps(1000);
    EXPECT_THAT(sleepsOf(2, 13), ElementsAre(20000, 20000));
}

TEST_F(FramePacingTest, BoostOf500MsLastsSixteenFrames) {
    touchBoostFps(500);
    const std::vector<uint64_t> sleeps = sleepsOf(18);
    std::vector<uint64_t> expected(16, 33000);
    expected.insert(expected.end(), {100000, 100000});
    EXPECT_EQ(sleeps, expected);
}

TEST_F(FramePacingTest, BoostOfFifteenWholeFramesLastsFifteen) {
    touchBoostFps(495);
    std::vector<uint64_t> expected(15, 33000);
    expected.push_back(100000);
    EXPECT_EQ(sleepsOf(16), expected);
}

TEST_F(FramePacingTest, BoostedFrameUsesTheBudgetUpWhetherItSleptOrNot) {
    touchBoostFps(66);
    ScriptWindow* only = push("only");
    only->onDraw = [this, frames = 0]() mutable { clock().advance(++frames <= 2 ? 50 : 0); };
    only->onEvents = results({-1, -1, -1});
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(FramePacingTest, ShorterRequestDoesNotShortenABoost) {
    touchBoostFps(99);
    touchBoostFps(1);
    EXPECT_THAT(sleepsOf(4), ElementsAre(33000, 33000, 33000, 100000));
}

TEST_F(FramePacingTest, LongerRequestProlongsABoost) {
    touchBoostFps(1);
    touchBoostFps(99);
    EXPECT_THAT(sleepsOf(4), ElementsAre(33000, 33000, 33000, 100000));
}

TEST_F(FramePacingTest, RequestDuringABoostCountsFromTheBudgetThatIsLeft) {
    ScriptWindow* only = push("only");
    touchBoostFps(66);
    only->onEvents = [calls = 0]() mutable {
        if (++calls == 2) touchBoostFps(40);
        return calls > 4 ? 1003 : -1;
    };
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(33000, 33000, 33000, 100000));
}

TEST_F(FramePacingTest, RequestBelowOneEndsTheBoost) {
    for (const int ms : {0, -1, -2147483647 - 1}) {
        touchBoostFps(1000);
        touchBoostFps(ms);
        push("only")->onEvents = results({-1});
        run();
        EXPECT_EQ(clock().sleeps().back(), 100000U) << ms;
    }
}

TEST_F(FramePacingTest, IdleFramesDoNotTouchTheBudget) {
    ScriptWindow* only = push("only");
    only->onEvents = [calls = 0]() mutable {
        if (++calls == 3) touchBoostFps(33);
        return calls > 4 ? 1003 : -1;
    };
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000, 100000, 33000, 100000));
}

TEST_F(FramePacingTest, LongestBoostIsKept) {
    touchBoostFps(2147483647);
    EXPECT_THAT(sleepsOf(100), Each(33000));
}

struct Rates {
    const char* name;
    int normal;
    int boost;
    uint64_t idleUs;
    uint64_t boostUs;
};

class FrameRateTest : public ostreltest::LoopTest, public ::testing::WithParamInterface<Rates> {};

TEST_P(FrameRateTest, SetsTheFrameTimes) {
    setOstrelWindowFps(GetParam().normal, GetParam().boost);
    touchBoostFps(1);
    push("only")->onEvents = results({-1, -1});
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(GetParam().boostUs, GetParam().idleUs));
}

INSTANTIATE_TEST_SUITE_P(Rates, FrameRateTest,
                         ::testing::Values(Rates{"TooSlowIdleGivesTheDefault", 5, 60, 100000, 16000},
                                           Rates{"TooSlowBoostGivesTheDefault", 20, 5, 50000, 33000},
                                           Rates{"SlowestRates", 6, 6, 166000, 166000},
                                           Rates{"ZeroGivesTheDefaults", 0, 0, 100000, 33000},
                                           Rates{"NegativeGivesTheDefaults", -30, -60, 100000, 33000},
                                           Rates{"DivisionDropsTheRest", 7, 60, 142000, 16000}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FramePacingTest, RateAbove1000DoesNotSleep) {
    setOstrelWindowFps(1001, 30);
    EXPECT_THAT(sleepsOf(2), IsEmpty());
}

TEST_F(FramePacingTest, BoostMayBeAskedForFromAnyThread) {
    std::thread first([] {
        for (int ms = 1; ms <= 99; ++ms) touchBoostFps(ms);
    });
    std::thread second([] {
        for (int ms = 99; ms >= 1; --ms) touchBoostFps(ms);
    });
    first.join();
    second.join();
    EXPECT_THAT(sleepsOf(4), ElementsAre(33000, 33000, 33000, 100000));
}

TEST_F(FramePacingTest, DrawingMayBeSwitchedFromAnyThread) {
    ScriptWindow* only = push("only");
    only->onEvents = [calls = 0]() mutable { return wait_event(nullptr) == 25 && ++calls == 20 ? 1003 : -1; };
    std::thread other([] {
        for (int i = 0; i < 20; ++i) {
            toggleDrawState(false);
            toggleDrawState(true);
        }
    });
    run();
    other.join();
    EXPECT_TRUE(gDrawWindow);
}

// What holds as long as the host has set neither rate nor boost.
class UnsetFramePacingTest : public ostreltest::DeviceTest {};

TEST_F(UnsetFramePacingTest, IsTenFramesASecondAndThirtyBoosted) {
    ostreltest::DrivenClock clock;
    ostreltest::Diary diary;
    std::vector<OstrelWindow*> stack{new ScriptWindow(diary, "only")};
    auto* only = static_cast<ScriptWindow*>(stack[0]);
    only->onEvents = [calls = 0]() mutable {
        if (++calls == 2) touchBoostFps(33);
        return calls <= 3 ? -1 : WIN_QUIT;
    };
    runWindows(stack);
    EXPECT_THAT(clock.sleeps(), ElementsAre(100000, 33000, 100000));
}

}  // namespace
