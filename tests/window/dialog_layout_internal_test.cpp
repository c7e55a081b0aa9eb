#include <gtest/gtest.h>

#include "window/dialog_layout.h"

namespace {

void expectRect(const SDL_Rect& actual, int x, int y, int w, int h) {
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
    EXPECT_EQ(actual.w, w);
    EXPECT_EQ(actual.h, h);
}

TEST(DialogLayout, AroundAPanel) {
    const ostrel::DialogLayout layout = ostrel::layoutWithPanel({700, 500}, {200, 60});
    expectRect(layout.panel, 290, 110, 700, 500);
    expectRect(layout.title, 290, 190, 700, 43);
    expectRect(layout.message, 290, 296, 700, 100);
    expectRect(layout.leftButton, 390, 500, 200, 60);
    expectRect(layout.rightButton, 690, 500, 200, 60);
}

TEST(DialogLayout, OddPanelSizesRoundDown) {
    const ostrel::DialogLayout layout = ostrel::layoutWithPanel({701, 501}, {10, 10});
    expectRect(layout.panel, 289, 109, 701, 501);
}

TEST(DialogLayout, WithoutAPanel) {
    const ostrel::DialogLayout layout = ostrel::layoutWithoutPanel({200, 50}, 180);
    expectRect(layout.title, 338, 222, 604, 43);
    expectRect(layout.message, 338, 328, 604, 100);
    expectRect(layout.leftButton, (604 - 200 - 180 - 12) / 2 + 338, (60 - 50) / 2 + 428, 200, 50);
    expectRect(layout.rightButton, 444 + 300, 433, 200, 50);
}

TEST(DialogLayout, WithoutAnyImage) {
    const ostrel::DialogLayout layout = ostrel::layoutWithoutPanel({0, 0}, 0);
    expectRect(layout.leftButton, 634, 458, 0, 0);
    expectRect(layout.rightButton, 734, 458, 0, 0);
}

}  // namespace
