// Start and Select as modifiers, and the hot keys used together with them.
#include "ostrel/input.h"
#include "window/input_test.h"

namespace {

using ostreltest::LogCapture;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Keys = std::vector<int>;

// The same controls twice: the buttons of the game-pad, and the keyboard's stand-ins for them.
enum class Source { GamePad, Keyboard };
enum Control { kHotkey1, kHotkey2, kSelect, kStart };

class InputModifierTest : public ostreltest::InputTest, public ::testing::WithParamInterface<Source> {
protected:
    Keys down(Control control) {
        return GetParam() == Source::GamePad ? press(kButtons[control]) : keyDown(kSymbols[control]);
    }
    Keys up(Control control) {
        return GetParam() == Source::GamePad ? release(kButtons[control]) : keyUp(kSymbols[control]);
    }

private:
    static constexpr int kButtons[] = {4, 5, 6, 7};
    static constexpr SDL_Keycode kSymbols[] = {SDLK_TAB, SDLK_BACKSPACE, SDLK_RCTRL, SDLK_RETURN};
};

INSTANTIATE_TEST_SUITE_P(Controls, InputModifierTest, ::testing::Values(Source::GamePad, Source::Keyboard),
                         [](const auto& source) { return source.param == Source::GamePad ? "GamePad" : "Keyboard"; });

TEST_P(InputModifierTest, StartAloneGivesStart) {
    EXPECT_THAT(down(kStart), IsEmpty());
    EXPECT_THAT(up(kStart), ElementsAre(9));
}

TEST_P(InputModifierTest, SelectAloneGivesSelect) {
    EXPECT_THAT(down(kSelect), IsEmpty());
    EXPECT_THAT(up(kSelect), ElementsAre(10));
}

TEST_P(InputModifierTest, HotkeyWhileStartIsHeldGivesNothingAndStartNeither) {
    for (const Control hotkey : {kHotkey1, kHotkey2}) {
        EXPECT_THAT(down(kStart), IsEmpty());
        EXPECT_THAT(down(hotkey), IsEmpty());
        EXPECT_THAT(up(hotkey), IsEmpty());
        EXPECT_THAT(up(kStart), IsEmpty());
    }
}

TEST_P(InputModifierTest, StartWorksAgainAfterACombo) {
    down(kStart), down(kHotkey1), up(kHotkey1), up(kStart);
    EXPECT_THAT(down(kStart), IsEmpty());
    EXPECT_THAT(up(kStart), ElementsAre(9));
}

TEST_P(InputModifierTest, StartClearsTheComboOfBothHotkeys) {
    down(kStart), down(kHotkey1), down(kHotkey2), up(kHotkey1), up(kHotkey2), up(kStart);
    down(kStart);
    EXPECT_THAT(up(kStart), ElementsAre(9));
}

TEST_P(InputModifierTest, HotkeyWhileSelectIsHeldGivesNothingAndSelectStillCounts) {
    for (const Control hotkey : {kHotkey1, kHotkey2}) {
        EXPECT_THAT(down(kSelect), IsEmpty());
        EXPECT_THAT(down(hotkey), IsEmpty());
        EXPECT_THAT(up(hotkey), IsEmpty());
        EXPECT_THAT(up(kSelect), ElementsAre(10));
    }
}

TEST_P(InputModifierTest, SelectKeepsTheComboMarkedForStart) {
    down(kStart), down(kSelect), down(kHotkey1), up(kHotkey1);
    EXPECT_THAT(up(kSelect), IsEmpty());
    EXPECT_THAT(up(kStart), IsEmpty());
    down(kStart);
    EXPECT_THAT(up(kStart), ElementsAre(9));
}

TEST_P(InputModifierTest, SelectCountsAgainOnceStartEndedTheCombo) {
    down(kStart), down(kHotkey2), up(kHotkey2), up(kStart);
    down(kSelect);
    EXPECT_THAT(up(kSelect), ElementsAre(10));
}

TEST_P(InputModifierTest, HotkeyPressedBeforeStartIsNoCombo) {
    down(kHotkey1), down(kStart);
    EXPECT_THAT(up(kHotkey1), IsEmpty());
    EXPECT_THAT(up(kStart), ElementsAre(9));
}

TEST_P(InputModifierTest, HotkeyReleasedAfterStartCounts) {
    down(kStart), down(kHotkey1);
    EXPECT_THAT(up(kStart), IsEmpty());
    EXPECT_THAT(up(kHotkey1), ElementsAre(12));
}

TEST_P(InputModifierTest, HotkeyReleaseLogsTheModifiers) {
    struct Row {
        bool select;
        bool start;
        const char* hotkey1;
        const char* hotkey2;
    };
    const Row rows[] = {
        {false, false, "hotkey1 select=0, start=0", "hotkey2 select=0, start=0"},
        {true, false, "hotkey1 select=1, start=0", "hotkey2 select=1, start=0"},
        {false, true, "hotkey1 select=0, start=1", "hotkey2 select=0, start=1"},
        {true, true, "hotkey1 select=1, start=1", "hotkey2 select=1, start=1"},
    };
    for (const Row& row : rows) {
        if (row.select) down(kSelect);
        if (row.start) down(kStart);
        down(kHotkey1), down(kHotkey2);
        LogCapture log;
        const Keys first = up(kHotkey1);
        EXPECT_EQ(log.lines().back(), row.hotkey1);
        const Keys second = up(kHotkey2);
        EXPECT_EQ(log.lines().back(), row.hotkey2);
        const bool free = !row.select && !row.start;
        EXPECT_EQ(first, free ? Keys{12} : Keys{});
        EXPECT_EQ(second, free ? Keys{13} : Keys{});
        up(kSelect), up(kStart);
    }
}

TEST_P(InputModifierTest, OtherButtonsKeepTheirKeysWhileModifiersAreHeld) {
    down(kStart), down(kSelect);
    if (GetParam() == Source::GamePad) {
        press(1);
        EXPECT_THAT(release(1), ElementsAre(1));
    } else {
        keyDown(SDLK_SPACE);
        EXPECT_THAT(keyUp(SDLK_SPACE), ElementsAre(1));
    }
}

using InputLogTest = ostreltest::InputTest;

TEST_F(InputLogTest, ReleasedButtonLogsItselfTheClearedRepeatAndTheHotkeyInThisOrder) {
    press(5);
    LogCapture log;
    release(5);
    EXPECT_EQ(log.text(), "joybuttonup 5\nclear repeat time\nhotkey2 select=0, start=0\n");
}

TEST_F(InputLogTest, PressedButtonLogsNothing) {
    LogCapture log;
    press(4);
    EXPECT_EQ(log.text(), "");
}

TEST_F(InputLogTest, ReleasedKeyOfTheKeyboardDoesNotClearTheRepeat) {
    LogCapture log;
    keyUp(SDLK_SPACE);
    EXPECT_EQ(log.text(), "");
}

TEST_F(InputLogTest, PressedDirectionLogsItsTime) {
    clock().set(1234567890123);
    LogCapture log;
    hat(SDL_HAT_LEFT);
    EXPECT_EQ(log.text(), "set repeat time 1234567890123\n");
}

TEST_F(InputLogTest, CentredHatAndDiagonalLogTheClearedRepeat) {
    hat(SDL_HAT_LEFT);
    LogCapture log;
    hat(SDL_HAT_LEFTUP);
    EXPECT_EQ(log.text(), "clear repeat time\n");
    hat(SDL_HAT_CENTERED);
    EXPECT_EQ(log.text(), "clear repeat time\nclear repeat time\n");
}

TEST_F(InputLogTest, ArrowOfTheKeyboardSetsNoRepeatTime) {
    LogCapture log;
    keyDown(SDLK_UP);
    EXPECT_EQ(log.text(), "");
}

}  // namespace
