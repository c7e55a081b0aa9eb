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
        mVisit = {};
        return launcher::readVisit("a.visit", mVisit);
    }
    // The only step of a text that has one.
    VisitStep step(const std::string& text) {
        EXPECT_EQ(read(text), "");
        EXPECT_EQ(mVisit.steps.size(), 1U) << text;
        return mVisit.steps.empty() ? VisitStep{} : mVisit.steps.front();
    }
    launcher::Visit mVisit;
};

TEST_F(VisitFileTest, EveryKeyOfThePadHasItsKeyboardKey) {
    const std::pair<const char*, SDL_Keycode> kExpected[] = {
        {"a", SDLK_SPACE},     {"b", SDLK_LCTRL},     {"x", SDLK_LSHIFT},     {"y", SDLK_LALT},
        {"l", SDLK_TAB},       {"r", SDLK_BACKSPACE}, {"up", SDLK_UP},        {"down", SDLK_DOWN},
        {"left", SDLK_LEFT},   {"right", SDLK_RIGHT}, {"start", SDLK_RETURN}, {"select", SDLK_RCTRL},
        {"menu", SDLK_ESCAPE},
    };
    for (const auto& [name, key] : kExpected) {
        const VisitStep found = step(std::string("key ") + name);
        EXPECT_EQ(found.kind, VisitStep::Kind::Key);
        EXPECT_EQ(found.key, key) << name;
    }
}

TEST_F(VisitFileTest, HoldWaitShotAndRestartHaveTheirArguments) {
    ASSERT_EQ(read("hold down 12\nwait 3\nshot one-two\nrestart\n"), "");
    ASSERT_EQ(mVisit.steps.size(), 4U);
    EXPECT_EQ(mVisit.steps[0].kind, VisitStep::Kind::Hold);
    EXPECT_EQ(mVisit.steps[0].key, SDLK_DOWN);
    EXPECT_EQ(mVisit.steps[0].frames, 12);
    EXPECT_EQ(mVisit.steps[1].kind, VisitStep::Kind::Wait);
    EXPECT_EQ(mVisit.steps[1].frames, 3);
    EXPECT_EQ(mVisit.steps[2].kind, VisitStep::Kind::Shot);
    EXPECT_EQ(mVisit.steps[2].name, "one-two");
    EXPECT_EQ(mVisit.steps[3].kind, VisitStep::Kind::Restart);
}

TEST_F(VisitFileTest, ADeviceStepHasAPathBelowTheConsoleAndTheRestOfTheLine) {
    const VisitStep found = step("device /sys/class/status  Not charging  # at all");
    EXPECT_EQ(found.kind, VisitStep::Kind::Device);
    EXPECT_EQ(found.name, "sys/class/status");
    EXPECT_EQ(found.text, "Not charging");
    EXPECT_EQ(step("device tmp/marker").text, "");
}

TEST_F(VisitFileTest, EscapesStandForOneByteEach) {
    using namespace std::string_literals;
    EXPECT_EQ(step(R"(device a one\ntwo)").text, "one\ntwo");
    EXPECT_EQ(step(R"(device a wpa_supplicant\0-B)").text, "wpa_supplicant\0-B"s);
    EXPECT_EQ(step(R"(device a \x23\x20\xe4\xB8\xad\\)").text, "# \xE4\xB8\xAD\\");
}

TEST_F(VisitFileTest, AnEscapeThatIsNoneIsAMistake) {
    for (const char* line : {R"(device a \t)", R"(device a \x4)", R"(device a \x4g)", R"(device a end\)"}) {
        EXPECT_EQ(read(line), std::string("a.visit:1: no such step: ") + line);
    }
}

TEST_F(VisitFileTest, ARemoveStepHasAPath) {
    const VisitStep found = step("remove /proc/523");
    EXPECT_EQ(found.kind, VisitStep::Kind::Remove);
    EXPECT_EQ(found.name, "proc/523");
}

TEST_F(VisitFileTest, APathStaysOnTheConsole) {
    for (const char* line :
         {"device ../one 1", "device tmp/../../one 1", "remove /..", "remove /", "remove .", "remove", "device"}) {
        EXPECT_EQ(read(line), std::string("a.visit:1: no such step: ") + line);
    }
}

TEST_F(VisitFileTest, OptionsAreTheWordsOfACommandLine) {
    ASSERT_EQ(read("option --theme light  # bright\noption --rotate\nwait 1\n"), "");
    EXPECT_EQ(mVisit.options, (std::vector<std::string>{"--theme", "light", "--rotate"}));
    EXPECT_EQ(mVisit.steps.size(), 1U);
}

TEST_F(VisitFileTest, OptionsComeBeforeAllSteps) {
    EXPECT_EQ(read("wait 1\noption --rotate\n"), "a.visit:2: options come before all steps: option --rotate");
}

TEST_F(VisitFileTest, AnIncludedVisitGivesItsLines) {
    device().write("short.visit", "option --lang ch.lang\nkey a\n");
    ASSERT_EQ(read("option --theme light\ninclude short\nkey b\n"), "");
    EXPECT_EQ(mVisit.options, (std::vector<std::string>{"--theme", "light", "--lang", "ch.lang"}));
    ASSERT_EQ(mVisit.steps.size(), 2U);
    EXPECT_EQ(mVisit.steps[0].key, SDLK_SPACE);
    EXPECT_EQ(mVisit.steps[1].key, SDLK_LCTRL);
}

TEST_F(VisitFileTest, AMistakeInAnIncludedVisitIsNamedThere) {
    device().write("short.visit", "key a\nkey q\n");
    EXPECT_EQ(read("include short\n"), "short.visit:2: no such step: key q");
    EXPECT_EQ(read("include missing\n"), "missing.visit: cannot be read");
}

TEST_F(VisitFileTest, AVisitThatIncludesItselfIsRefused) {
    EXPECT_EQ(read("include a\n"), "a.visit:1: no such step: include a");
}

TEST_F(VisitFileTest, CommentsAndEmptyLinesAreNoSteps) {
    EXPECT_EQ(step("# a comment\n\n   \nwait 1 # behind a step\n").kind, VisitStep::Kind::Wait);
}

TEST_F(VisitFileTest, AMistakeIsNamedWithItsLine) {
    EXPECT_EQ(read("wait 1\nkey z\n"), "a.visit:2: no such step: key z");
    EXPECT_EQ(read("jump 1\n"), "a.visit:1: no such step: jump 1");
    EXPECT_EQ(read("wait 0\n"), "a.visit:1: no such step: wait 0");
    EXPECT_EQ(read("hold a 3\n"), "a.visit:1: no such step: hold a 3");
    EXPECT_EQ(read("wait 1 2\n"), "a.visit:1: no such step: wait 1 2");
    EXPECT_EQ(read("restart now\n"), "a.visit:1: no such step: restart now");
}

TEST_F(VisitFileTest, AShotStaysInItsFolder) {
    EXPECT_EQ(read("shot ../one\n"), "a.visit:1: no such step: shot ../one");
}

TEST_F(VisitFileTest, AMissingFileIsNamed) {
    EXPECT_EQ(launcher::readVisit("none.visit", mVisit), "none.visit: cannot be read");
}

}  // namespace
