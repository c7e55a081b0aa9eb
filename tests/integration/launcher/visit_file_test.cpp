// The visit files: which lines are steps, and what is said of the others.
#include <gtest/gtest.h>

#include "support/test_device.h"
#include "visit.h"

namespace {

using launcher::VisitStep;

class VisitFileTest : public ostreltest::DeviceTest {
protected:
    std::string read(const std::string& text) {
        device().write("a.visit", text);
        mSteps.clear();
        return launcher::readVisit("a.visit", mSteps);
    }
    std::vector<VisitStep> mSteps;
};

TEST_F(VisitFileTest, EveryKeyOfThePadHasItsKeyboardKey) {
    const std::pair<const char*, SDL_Keycode> kExpected[] = {
        {"a", SDLK_SPACE},     {"b", SDLK_LCTRL},     {"x", SDLK_LSHIFT},     {"y", SDLK_LALT},
        {"l", SDLK_TAB},       {"r", SDLK_BACKSPACE}, {"up", SDLK_UP},        {"down", SDLK_DOWN},
        {"left", SDLK_LEFT},   {"right", SDLK_RIGHT}, {"start", SDLK_RETURN}, {"select", SDLK_RCTRL},
        {"menu", SDLK_ESCAPE},
    };
    for (const auto& [name, key] : kExpected) {
        ASSERT_EQ(read(std::string("key ") + name), "") << name;
        EXPECT_EQ(mSteps.at(0).kind, VisitStep::Kind::Key);
        EXPECT_EQ(mSteps.at(0).key, key) << name;
    }
}

TEST_F(VisitFileTest, HoldWaitAndShotHaveTheirArguments) {
    ASSERT_EQ(read("hold down 12\nwait 3\nshot one-two\n"), "");
    ASSERT_EQ(mSteps.size(), 3U);
    EXPECT_EQ(mSteps[0].kind, VisitStep::Kind::Hold);
    EXPECT_EQ(mSteps[0].key, SDLK_DOWN);
    EXPECT_EQ(mSteps[0].frames, 12);
    EXPECT_EQ(mSteps[1].kind, VisitStep::Kind::Wait);
    EXPECT_EQ(mSteps[1].frames, 3);
    EXPECT_EQ(mSteps[2].kind, VisitStep::Kind::Shot);
    EXPECT_EQ(mSteps[2].name, "one-two");
}

TEST_F(VisitFileTest, CommentsAndEmptyLinesAreNoSteps) {
    EXPECT_EQ(read("# a comment\n\n   \nwait 1 # behind a step\n"), "");
    EXPECT_EQ(mSteps.size(), 1U);
}

TEST_F(VisitFileTest, AMistakeIsNamedWithItsLine) {
    EXPECT_EQ(read("wait 1\nkey z\n"), "a.visit:2: no such step: key z");
    EXPECT_EQ(read("jump 1\n"), "a.visit:1: no such step: jump 1");
    EXPECT_EQ(read("wait 0\n"), "a.visit:1: no such step: wait 0");
    EXPECT_EQ(read("hold a 3\n"), "a.visit:1: no such step: hold a 3");
    EXPECT_EQ(read("wait 1 2\n"), "a.visit:1: no such step: wait 1 2");
}

TEST_F(VisitFileTest, AShotStaysInItsFolder) {
    EXPECT_EQ(read("shot ../one\n"), "a.visit:1: no such step: shot ../one");
}

TEST_F(VisitFileTest, AMissingFileIsNamed) {
    std::vector<VisitStep> steps;
    EXPECT_EQ(launcher::readVisit("none.visit", steps), "none.visit: cannot be read");
}

}  // namespace
