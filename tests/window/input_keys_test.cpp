// The two key tables, row by row, on events of a real (virtual) game-pad and of the keyboard.
#include "window/input_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using InputKeysTest = ostreltest::InputTest;

TEST_F(InputKeysTest, NothingPendingGivesNoKey) { EXPECT_EQ(wait_event(nullptr), 0); }

TEST_F(InputKeysTest, KeyCodesAreFixedNumbers) {
    const int codes[] = {KEY_NONE,    KEY_A,       KEY_B,         KEY_X,        KEY_Y,      KEY_UP,
                         KEY_DOWN,    KEY_LEFT,    KEY_RIGHT,     KEY_START,    KEY_SELECT, KEY_MENU,
                         KEY_HOTKEY1, KEY_HOTKEY2, KEY_TRIGGER_L, KEY_TRIGGER_R};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(codes[i], i);
}

struct ButtonRow {
    int button;
    int key;
};

class InputButtonTest : public ostreltest::InputTest, public ::testing::WithParamInterface<ButtonRow> {};

TEST_P(InputButtonTest, GivesItsKeyWhenItIsReleased) {
    EXPECT_THAT(press(GetParam().button), IsEmpty());
    EXPECT_THAT(release(GetParam().button), ElementsAre(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(GamePad, InputButtonTest,
                         ::testing::Values(ButtonRow{0, 2}, ButtonRow{1, 1}, ButtonRow{2, 4}, ButtonRow{3, 3},
                                           ButtonRow{4, 12}, ButtonRow{5, 13}, ButtonRow{6, 10}, ButtonRow{7, 9},
                                           ButtonRow{8, 11}),
                         [](const auto& row) { return "Button" + std::to_string(row.param.button); });

TEST_F(InputKeysTest, ButtonsAboveEightGiveNoKey) {
    for (const Uint8 button : std::vector<Uint8>{9, 10, 11, 255}) {
        SDL_Event event{};
        event.type = SDL_JOYBUTTONDOWN;
        event.jbutton.button = button;
        SDL_PushEvent(&event);
        event.type = SDL_JOYBUTTONUP;
        SDL_PushEvent(&event);
        EXPECT_THAT(keys(), IsEmpty()) << int{button};
    }
}

TEST_F(InputKeysTest, HatGivesDirectionsWhenItIsPressed) {
    EXPECT_THAT(hat(SDL_HAT_UP), ElementsAre(5));
    EXPECT_THAT(hat(SDL_HAT_DOWN), ElementsAre(6));
    EXPECT_THAT(hat(SDL_HAT_LEFT), ElementsAre(7));
    EXPECT_THAT(hat(SDL_HAT_RIGHT), ElementsAre(8));
}

TEST_F(InputKeysTest, CentredHatGivesNoKey) {
    hat(SDL_HAT_UP);
    EXPECT_THAT(hat(SDL_HAT_CENTERED), IsEmpty());
}

TEST_F(InputKeysTest, DiagonalsOfTheHatGiveNoKey) {
    for (const Uint8 diagonal :
         std::vector<Uint8>{SDL_HAT_LEFTUP, SDL_HAT_RIGHTUP, SDL_HAT_LEFTDOWN, SDL_HAT_RIGHTDOWN}) {
        EXPECT_THAT(hat(diagonal), IsEmpty()) << int{diagonal};
    }
}

struct KeyboardRow {
    const char* name;
    SDL_Keycode symbol;
    int key;
};

class InputKeyboardTest : public ostreltest::InputTest, public ::testing::WithParamInterface<KeyboardRow> {};

TEST_P(InputKeyboardTest, GivesItsKeyWhenItIsReleased) {
    EXPECT_THAT(keyDown(GetParam().symbol), IsEmpty());
    EXPECT_THAT(keyUp(GetParam().symbol), ElementsAre(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(Keyboard, InputKeyboardTest,
                         ::testing::Values(KeyboardRow{"Space", SDLK_SPACE, 1}, KeyboardRow{"LeftCtrl", SDLK_LCTRL, 2},
                                           KeyboardRow{"LeftShift", SDLK_LSHIFT, 3},
                                           KeyboardRow{"LeftAlt", SDLK_LALT, 4}, KeyboardRow{"Return", SDLK_RETURN, 9},
                                           KeyboardRow{"RightCtrl", SDLK_RCTRL, 10},
                                           KeyboardRow{"Escape", SDLK_ESCAPE, 11}, KeyboardRow{"Tab", SDLK_TAB, 12},
                                           KeyboardRow{"Backspace", SDLK_BACKSPACE, 13}),
                         [](const auto& row) { return std::string(row.param.name); });

class InputArrowTest : public ostreltest::InputTest, public ::testing::WithParamInterface<KeyboardRow> {};

TEST_P(InputArrowTest, GivesItsKeyWhenItIsPressedAndNoneWhenReleased) {
    EXPECT_THAT(keyDown(GetParam().symbol), ElementsAre(GetParam().key));
    EXPECT_THAT(keyUp(GetParam().symbol), IsEmpty());
}

TEST_P(InputArrowTest, IsRepeatedBySdl) {
    ostreltest::pushKey(SDL_KEYDOWN, GetParam().symbol, /*repeat=*/true);
    EXPECT_THAT(keys(), ElementsAre(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(Keyboard, InputArrowTest,
                         ::testing::Values(KeyboardRow{"Up", SDLK_UP, 5}, KeyboardRow{"Down", SDLK_DOWN, 6},
                                           KeyboardRow{"Left", SDLK_LEFT, 7}, KeyboardRow{"Right", SDLK_RIGHT, 8}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(InputKeysTest, OtherKeysOfTheKeyboardGiveNoKey) {
    for (const SDL_Keycode symbol : {SDLK_a, SDLK_F1, SDLK_RSHIFT, SDLK_RALT, SDLK_POWER, SDLK_KP_ENTER}) {
        EXPECT_THAT(keyDown(symbol), IsEmpty()) << symbol;
        EXPECT_THAT(keyUp(symbol), IsEmpty()) << symbol;
    }
}

struct AxisRow {
    int axis;
    int negative;
    int positive;
};

class InputAxisTest : public ostreltest::InputTest, public ::testing::WithParamInterface<AxisRow> {
protected:
    static std::vector<int> noneOr(int key) { return key == 0 ? std::vector<int>{} : std::vector<int>{key}; }
};

TEST_P(InputAxisTest, GivesOneKeyForEachSide) {
    EXPECT_EQ(axis(GetParam().axis, 32767), noneOr(GetParam().positive));
    clock().advance(151);
    EXPECT_EQ(axis(GetParam().axis, -32768), noneOr(GetParam().negative));
}

INSTANTIATE_TEST_SUITE_P(GamePad, InputAxisTest,
                         ::testing::Values(AxisRow{0, 7, 8}, AxisRow{1, 5, 6}, AxisRow{2, 0, 14}, AxisRow{3, 7, 8},
                                           AxisRow{4, 5, 6}, AxisRow{5, 0, 15}),
                         [](const auto& row) { return "Axis" + std::to_string(row.param.axis); });

TEST_F(InputKeysTest, FurtherAxesGiveNoKey) {
    SDL_Event event{};
    event.type = SDL_JOYAXISMOTION;
    event.jaxis.axis = 6;
    event.jaxis.value = 32767;
    SDL_PushEvent(&event);
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(InputKeysTest, AxisCountsFromMoreThanHalfWay) {
    EXPECT_THAT(axis(0, 16384), IsEmpty());
    EXPECT_THAT(axis(0, 16385), ElementsAre(8));
}

TEST_F(InputKeysTest, AxisCountsFromMoreThanHalfWayOnTheNegativeSideToo) {
    EXPECT_THAT(axis(0, -16384), IsEmpty());
    EXPECT_THAT(axis(0, -16385), ElementsAre(7));
}

TEST_F(InputKeysTest, AxisAtItsVeryEndGivesAKey) { EXPECT_THAT(axis(1, -32768), ElementsAre(5)); }

TEST_F(InputKeysTest, AxisThatCountsIsLogged) {
    ostreltest::LogCapture log;
    axis(4, 16385);
    EXPECT_EQ(log.text(), "joyaxis 4, value 16385\n");
}

TEST_F(InputKeysTest, AxisHalfWayIsNotLogged) {
    ostreltest::LogCapture log;
    axis(4, 16384);
    EXPECT_EQ(log.text(), "");
}

TEST_F(InputKeysTest, AnyAxisWithin150MsOfAnAxisKeyGivesNone) {
    EXPECT_THAT(axis(0, 20000), ElementsAre(8));
    clock().advance(150);
    EXPECT_THAT(axis(1, 20000), IsEmpty());
}

TEST_F(InputKeysTest, HeldAxisGivesAKeyEvery151Ms) {
    EXPECT_THAT(axis(0, 20000), ElementsAre(8));
    clock().advance(151);
    EXPECT_THAT(axis(0, 20001), ElementsAre(8));
    clock().advance(150);
    EXPECT_THAT(axis(0, 20002), IsEmpty());
    clock().advance(1);
    EXPECT_THAT(axis(0, 20003), ElementsAre(8));
}

TEST_F(InputKeysTest, AxisThatIsHeldBackIsLoggedAllTheSame) {
    axis(0, 20000);
    ostreltest::LogCapture log;
    axis(0, 20001);
    EXPECT_EQ(log.text(), "joyaxis 0, value 20001\n");
}

TEST_F(InputKeysTest, AxisWithoutAKeyHoldsNoOtherBack) {
    EXPECT_THAT(axis(2, -20000), IsEmpty());
    EXPECT_THAT(axis(0, 20000), ElementsAre(8));
}

TEST_F(InputKeysTest, AxisGivesAKeyWhenTheClockWentBackwards) {
    axis(0, 20000);
    clock().set(clock().now() - 5000);
    EXPECT_THAT(axis(0, 20001), ElementsAre(8));
}

TEST_F(InputKeysTest, UserEventGivesItsCodeUnchanged) {
    for (const int code : {5, 25, 1003, -7, 2147483647}) {
        ostreltest::pushUser(code);
        EXPECT_THAT(keys(), ElementsAre(code));
    }
}

TEST_F(InputKeysTest, OtherUserEventTypesGiveNoKey) {
    SDL_Event event{};
    event.type = SDL_USEREVENT + 1;
    event.user.code = 5;
    SDL_PushEvent(&event);
    EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(InputKeysTest, OtherEventsGiveNoKey) {
    for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEMOTION, SDL_WINDOWEVENT, SDL_TEXTINPUT, SDL_JOYDEVICEADDED,
                              SDL_CONTROLLERBUTTONUP}) {
        SDL_Event event{};
        event.type = type;
        SDL_PushEvent(&event);
        ostreltest::LogCapture log;
        EXPECT_THAT(keys(), IsEmpty()) << type;
        EXPECT_EQ(log.text(), "");
    }
}

TEST_F(InputKeysTest, OneCallTakesOneEvent) {
    ostreltest::pushUser(41);
    ostreltest::pushUser(42);
    EXPECT_EQ(wait_event(nullptr), 41);
    EXPECT_EQ(wait_event(nullptr), 42);
    EXPECT_EQ(wait_event(nullptr), 0);
}

}  // namespace
