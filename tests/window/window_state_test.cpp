// The file that saveWindowsState writes.
#include <cinttypes>

#include "support/log_capture.h"
#include "support/short_memory.h"
#include "support/test_device.h"
#include "window/script_window.h"

namespace {

using ostreltest::Diary;
using ostreltest::LogCapture;
using ostreltest::ScriptWindow;
using ostreltest::ShortMemory;
using ::testing::ElementsAre;

class WindowStateTest : public ostreltest::DeviceTest {
private:
    Diary mDiary;  // outlives the windows, which write into it to the last

protected:
    ScriptWindow bottom{mDiary, "bottom", 4, 7};
    ScriptWindow top{mDiary, "top", -1, -2};
    std::vector<OstrelWindow*> stack{&bottom, &top};
};

constexpr const char* kTwoWindows =
    "{\n"
    "\t\"list\":\t[{\n"
    "\t\t\t\"title\":\t4,\n"
    "\t\t\t\"type\":\t7\n"
    "\t\t}, {\n"
    "\t\t\t\"title\":\t-1,\n"
    "\t\t\t\"type\":\t-2\n"
    "\t\t}]\n"
    "}";

TEST_F(WindowStateTest, WritesTheStackFromTheBottomUp) {
    saveWindowsState(stack, "state.json");
    EXPECT_EQ(device().read("state.json"), kTwoWindows);
}

TEST_F(WindowStateTest, ReplacesALongerFile) {
    device().write("state.json", std::string(5000, 'x'));
    saveWindowsState(stack, "state.json");
    EXPECT_EQ(device().read("state.json"), kTwoWindows);
}

TEST_F(WindowStateTest, AddsTheMembersOfTheWindow) {
    top.onSave = [](cJSON* object) { cJSON_AddStringToObject(object, "folder", "/games"); };
    saveWindowsState(stack, "state.json");
    EXPECT_EQ(device().read("state.json"),
              "{\n"
              "\t\"list\":\t[{\n"
              "\t\t\t\"title\":\t4,\n"
              "\t\t\t\"type\":\t7\n"
              "\t\t}, {\n"
              "\t\t\t\"title\":\t-1,\n"
              "\t\t\t\"type\":\t-2,\n"
              "\t\t\t\"folder\":\t\"/games\"\n"
              "\t\t}]\n"
              "}");
}

TEST_F(WindowStateTest, LogsEachStep) {
    LogCapture log;
    saveWindowsState(stack, "state.json");
    char expected[1024];
    std::snprintf(expected, sizeof expected,
                  "2 wins need to be saved\nsave state for window 0x%" PRIxPTR "\nsave state for window 0x%" PRIxPTR
                  "\nsave %s\n",
                  reinterpret_cast<uintptr_t>(&bottom), reinterpret_cast<uintptr_t>(&top), kTwoWindows);
    EXPECT_EQ(log.text(), expected);
}

TEST_F(WindowStateTest, LogsTheWindowBeforeItIsAsked) {
    std::size_t lines = 0;
    LogCapture log;
    bottom.onSave = [&log, &lines](cJSON*) { lines = log.lines().size(); };
    saveWindowsState(stack, "state.json");
    EXPECT_EQ(lines, 2U);
}

TEST_F(WindowStateTest, WindowAsksForNumbersAlreadyThere) {
    int titleSeen = 0;
    bottom.onSave = [&titleSeen](cJSON* object) { titleSeen = object->child->valueint; };
    saveWindowsState(stack, "state.json");
    EXPECT_EQ(titleSeen, 4);
}

TEST_F(WindowStateTest, EmptyStackLeavesTheFileAlone) {
    device().write("state.json", "kept");
    std::vector<OstrelWindow*> none;
    LogCapture log;
    saveWindowsState(none, "state.json");
    EXPECT_EQ(device().read("state.json"), "kept");
    EXPECT_EQ(log.text(), "");
}

TEST_F(WindowStateTest, FileThatCannotBeOpenedIsLeftOutSilently) {
    LogCapture log;
    saveWindowsState(stack, "no/such/folder/state.json");
    EXPECT_EQ(log.text(), "2 wins need to be saved\n");
}

TEST_F(WindowStateTest, NullPathIsLeftOutSilently) {
    LogCapture log;
    saveWindowsState(stack, nullptr);
    EXPECT_EQ(log.text(), "2 wins need to be saved\n");
}

TEST_F(WindowStateTest, WithoutMemoryForTheListTheFileIsLeftEmpty) {
    for (const int granted : {0, 1}) {
        device().write("state.json", "old");
        const ShortMemory memory(granted);
        LogCapture log;
        saveWindowsState(stack, "state.json");
        EXPECT_EQ(device().read("state.json"), "") << granted;
        EXPECT_EQ(log.text(), "2 wins need to be saved\n") << granted;
    }
}

TEST_F(WindowStateTest, WindowsStayOnTheStack) {
    saveWindowsState(stack, "state.json");
    EXPECT_THAT(stack, ElementsAre(&bottom, &top));
}

}  // namespace
