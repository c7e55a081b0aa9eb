// A window that writes down what the loop does with it and runs what a test gives it for each call.
#pragma once
#include <cjson/cJSON.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ostrel/window.h"

namespace ostreltest {

using Diary = std::vector<std::string>;

class ScriptWindow : public OstrelWindow {
public:
    ScriptWindow(Diary& diary, std::string name, int titleIndex = -1, int typeCode = 0)
        : OstrelWindow(titleIndex, typeCode), mDiary(diary), mName(std::move(name)) {}
    ~ScriptWindow() override { note("deleted", onDelete); }

    int eventHandling() override {
        mDiary.push_back(mName + " events");
        return onEvents ? onEvents() : -1;
    }
    void draw() override { note("draw", onDraw); }
    void quit() override { note("quit", onQuit); }
    void init() override { note("init", onInit); }
    void saveState(cJSON* obj) override {
        OstrelWindow::saveState(obj);
        if (onSave) onSave(obj);
    }
    int restoreState() override { return OstrelWindow::restoreState(); }
    void onFrame() override {
        OstrelWindow::onFrame();
        note("frame", onFrameBegin);
    }
    void preDraw() override { note("preDraw", onPreDraw); }
    void onPop() override { note("pop", onRemoved); }

    std::function<int()> onEvents;  // -1 without one
    std::function<void()> onDraw, onQuit, onInit, onFrameBegin, onPreDraw, onRemoved, onDelete;
    std::function<void(cJSON*)> onSave;

private:
    void note(const char* what, const std::function<void()>& then) {
        mDiary.push_back(mName + " " + what);
        if (then) then();
    }

    Diary& mDiary;
    std::string mName;
};

// Gives the results one after the other, one a call, and WIN_QUIT from then on.
inline std::function<int()> results(std::vector<int> list) {
    return [list = std::move(list), next = std::size_t{0}]() mutable {
        return next < list.size() ? list[next++] : WIN_QUIT;
    };
}

}  // namespace ostreltest
