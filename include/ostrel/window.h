/// @file  window.h: the window stack and the main loop.
/// Threads: the thread that calls runWindows, except toggleDrawState and touchBoostFps (any).
#pragma once
#include <cjson/cJSON.h>

#include <vector>

#include "ostrel/export.h"

constexpr int WIN_REDRAW = 25;
constexpr int WIN_BACK = 1002;
constexpr int WIN_QUIT = 1003;
constexpr int WIN_QUIT_ALT = 1004;
constexpr int WIN_CLOSE = 1005;

class OSTREL_API OstrelWindow {
public:
    OstrelWindow(int title, int type);
    OstrelWindow(const OstrelWindow&) = delete;
    OstrelWindow& operator=(const OstrelWindow&) = delete;
    virtual ~OstrelWindow();
    virtual int eventHandling() = 0;
    virtual void draw() = 0;
    virtual void quit() = 0;
    virtual void init() = 0;
    virtual void saveState(cJSON* obj) = 0;
    virtual int restoreState() = 0;
    virtual void onFrame() = 0;
    virtual void preDraw();
    virtual void onPop();
    virtual const char* getTitle();

    void dump();

    int title;
    int type;
};

extern OSTREL_API std::vector<OstrelWindow*>* gWinList;
extern OSTREL_API std::vector<OstrelWindow*> gPopupList;
extern OSTREL_API bool gDrawWindow;

OSTREL_API void runWindows(std::vector<OstrelWindow*>& stack);
OSTREL_API void add2PopupList(OstrelWindow* w);
OSTREL_API void toggleDrawState(bool on);
OSTREL_API void touchBoostFps(int ms);
OSTREL_API void setOstrelWindowFps(int normal, int boost);
OSTREL_API void freeWindows(std::vector<OstrelWindow*>& stack);
OSTREL_API void saveWindowsState(std::vector<OstrelWindow*>& stack, const char* path);
