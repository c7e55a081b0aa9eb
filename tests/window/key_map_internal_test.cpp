// The mapping of events to keys in all sixteen states of the modifiers, with nothing polled.
#include "support/log_capture.h"
#include "window/key_map.h"

namespace {

using ostrel::keyForEvent;
using ostrel::Modifiers;

enum class Source { GamePad, Keyboard };

constexpr int kHotkey1 = 4;
constexpr int kHotkey2 = 5;
constexpr int kSelect = 6;
constexpr int kStart = 7;

SDL_Keycode standIn(int button) {
    if (button == kHotkey1) return SDLK_TAB;
    if (button == kHotkey2) return SDLK_BACKSPACE;
    return button == kSelect ? SDLK_RCTRL : SDLK_RETURN;
}

SDL_Event event(Source source, int button, bool down) {
    SDL_Event result{};
    if (source == Source::GamePad) {
        result.type = down ? SDL_JOYBUTTONDOWN : SDL_JOYBUTTONUP;
        result.jbutton.button = static_cast<Uint8>(button);
    } else {
        result.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        result.key.keysym.sym = standIn(button);
    }
    return result;
}

Modifiers state(int bits) { return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0}; }

int bits(const Modifiers& held) {
    return (held.startHeld ? 1 : 0) | (held.selectHeld ? 2 : 0) | (held.comboHotkey1 ? 4 : 0) |
           (held.comboHotkey2 ? 8 : 0);
}

// Bits of a state: 1 Start held, 2 Select held, 4 combo of hot key 1, 8 combo of hot key 2.
struct Row {
    int before;
    int hotkey1, hotkey2, start, select;  // the key of each release
    int afterStart, afterSelect;          // the state after the release of Start and of Select
    int afterHotkey1Down, afterHotkey2Down;
};

constexpr Row kRows[] = {
    {0, 12, 13, 9, 10, 0, 0, 0, 0},    {1, 0, 0, 9, 10, 0, 1, 5, 9},    {2, 0, 0, 9, 10, 2, 0, 2, 2},
    {3, 0, 0, 9, 10, 2, 1, 7, 11},     {4, 12, 13, 0, 0, 0, 4, 4, 4},   {5, 0, 0, 0, 0, 0, 5, 5, 13},
    {6, 0, 0, 0, 0, 2, 4, 6, 6},       {7, 0, 0, 0, 0, 2, 5, 7, 15},    {8, 12, 13, 0, 0, 0, 8, 8, 8},
    {9, 0, 0, 0, 0, 0, 9, 13, 9},      {10, 0, 0, 0, 0, 2, 8, 10, 10},  {11, 0, 0, 0, 0, 2, 9, 15, 11},
    {12, 12, 13, 0, 0, 0, 12, 12, 12}, {13, 0, 0, 0, 0, 0, 13, 13, 13}, {14, 0, 0, 0, 0, 2, 12, 14, 14},
    {15, 0, 0, 0, 0, 2, 13, 15, 15},
};

class KeyMapTest : public ::testing::TestWithParam<Source> {
protected:
    // The key, and the state afterwards.
    static std::pair<int, int> after(int before, int button, bool down) {
        Modifiers held = state(before);
        ostreltest::LogCapture silence;
        const int key = keyForEvent(event(GetParam(), button, down), held);
        return {key, bits(held)};
    }
};

using KeyAndState = std::pair<int, int>;

TEST_P(KeyMapTest, ReleasedHotkeyCountsWithNeitherStartNorSelectHeldAndChangesNoState) {
    for (const Row& row : kRows) {
        EXPECT_EQ(after(row.before, kHotkey1, false), KeyAndState(row.hotkey1, row.before)) << row.before;
        EXPECT_EQ(after(row.before, kHotkey2, false), KeyAndState(row.hotkey2, row.before)) << row.before;
    }
}

TEST_P(KeyMapTest, ReleasedStartCountsWithoutAComboAndForgetsIt) {
    for (const Row& row : kRows) {
        EXPECT_EQ(after(row.before, kStart, false), KeyAndState(row.start, row.afterStart)) << row.before;
    }
}

TEST_P(KeyMapTest, ReleasedSelectCountsWithoutAComboAndKeepsIt) {
    for (const Row& row : kRows) {
        EXPECT_EQ(after(row.before, kSelect, false), KeyAndState(row.select, row.afterSelect)) << row.before;
    }
}

TEST_P(KeyMapTest, PressedHotkeyMarksAComboWhileStartIsHeld) {
    for (const Row& row : kRows) {
        EXPECT_EQ(after(row.before, kHotkey1, true), KeyAndState(0, row.afterHotkey1Down)) << row.before;
        EXPECT_EQ(after(row.before, kHotkey2, true), KeyAndState(0, row.afterHotkey2Down)) << row.before;
    }
}

TEST_P(KeyMapTest, PressedStartAndSelectCountAsHeld) {
    for (const Row& row : kRows) {
        EXPECT_EQ(after(row.before, kStart, true), KeyAndState(0, row.before | 1)) << row.before;
        EXPECT_EQ(after(row.before, kSelect, true), KeyAndState(0, row.before | 2)) << row.before;
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, KeyMapTest, ::testing::Values(Source::GamePad, Source::Keyboard),
                         [](const auto& source) { return source.param == Source::GamePad ? "GamePad" : "Keyboard"; });

}  // namespace
