// The window class: shared bodies, the title, and the order of its virtual operations.
#include "support/log_capture.h"
#include "support/test_device.h"
#include "window/script_window.h"

namespace {

using ostreltest::Diary;
using ostreltest::LogCapture;
using ostreltest::ScriptWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowTest : public ostreltest::DeviceTest {
protected:
    Diary& diary() { return mDiary; }

private:
    Diary mDiary;
};

// A window that leaves everything it may to the base class.
class PlainWindow : public OstrelWindow {
public:
    using OstrelWindow::OstrelWindow;
    int eventHandling() override { return -1; }
    void draw() override {}
    void quit() override {}
    void init() override {}
    void saveState(cJSON* obj) override { OstrelWindow::saveState(obj); }
    int restoreState() override { return OstrelWindow::restoreState(); }
    void onFrame() override { OstrelWindow::onFrame(); }
};

TEST_F(WindowTest, KeepsTitleAndType) {
    const PlainWindow window(4, -7);
    EXPECT_EQ(window.title, 4);
    EXPECT_EQ(window.type, -7);
}

TEST_F(WindowTest, ResultCodesAreFixedNumbers) {
    EXPECT_EQ(WIN_REDRAW, 25);
    EXPECT_EQ(WIN_BACK, 1002);
    EXPECT_EQ(WIN_QUIT, 1003);
    EXPECT_EQ(WIN_QUIT_ALT, 1004);
    EXPECT_EQ(WIN_CLOSE, 1005);
}

TEST_F(WindowTest, SharedBodiesDoNothing) {
    PlainWindow window(1, 2);
    cJSON* object = cJSON_CreateObject();
    LogCapture log;
    window.saveState(object);
    EXPECT_EQ(window.restoreState(), 0);
    window.onFrame();
    window.preDraw();
    window.onPop();
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(object->child, nullptr);
    EXPECT_EQ(window.title, 1);
    EXPECT_EQ(window.type, 2);
    cJSON_Delete(object);
}

TEST_F(WindowTest, TitleIsTheTextOfItsIndex) {
    PlainWindow window(4, 0);
    EXPECT_STREQ(window.getTitle(), "OPEN");
}

TEST_F(WindowTest, NegativeTitleIsEmpty) {
    PlainWindow window(-1, 0);
    EXPECT_STREQ(window.getTitle(), "");
}

TEST_F(WindowTest, DumpLogsTitleAndType) {
    PlainWindow window(5, 11);
    LogCapture log;
    window.dump();
    EXPECT_EQ(log.text(), "title BACK, type 11\n");
}

TEST_F(WindowTest, DumpLeavesANegativeTitleEmpty) {
    PlainWindow window(-3, -1);
    LogCapture log;
    window.dump();
    EXPECT_EQ(log.text(), "title , type -1\n");
}

// Programs are compiled against this order.
TEST_F(WindowTest, VirtualOperationsStandInTheirSlots) {
    auto* window = new ScriptWindow(diary(), "w", 7);
    OstrelWindow* base = window;
    window->onEvents = [] { return 77; };
    bool saved = false;
    window->onSave = [&saved](cJSON*) { saved = true; };
    void* const* slots = *reinterpret_cast<void***>(base);
    const auto call = [base, slots](int slot) { reinterpret_cast<void (*)(OstrelWindow*)>(slots[slot])(base); };
    EXPECT_EQ(reinterpret_cast<int (*)(OstrelWindow*)>(slots[2])(base), 77);
    call(3);
    call(4);
    call(5);
    reinterpret_cast<void (*)(OstrelWindow*, cJSON*)>(slots[6])(base, nullptr);
    EXPECT_TRUE(saved);
    EXPECT_EQ(reinterpret_cast<int (*)(OstrelWindow*)>(slots[7])(base), 0);
    call(8);
    call(9);
    call(10);
    EXPECT_STREQ(reinterpret_cast<const char* (*)(OstrelWindow*)>(slots[11])(base), "MENU");
    call(1);  // the deleting destructor
    EXPECT_THAT(diary(),
                ElementsAre("w events", "w draw", "w quit", "w init", "w frame", "w preDraw", "w pop", "w deleted"));
}

TEST_F(WindowTest, FirstFieldsAreTitleAndType) {
    PlainWindow window(21, 22);
    const auto* fields = reinterpret_cast<const int*>(reinterpret_cast<const char*>(&window) + sizeof(void*));
    EXPECT_EQ(fields[0], 21);
    EXPECT_EQ(fields[1], 22);
}

}  // namespace
