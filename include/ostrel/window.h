/// @file  window.h: the windows of a program, the stack they stand on, and the main loop that runs them.
/// The stack is a vector with the top window at its back; only the top window is drawn and receives input. The stack
/// owns its windows: each leaves it through quit() and is then deleted. Popups and dialogs are not pushed but queued
/// with add2PopupList, and the loop puts them on top.
/// Threads: the UI thread (the one that calls runWindows), except toggleDrawState and touchBoostFps (any).
#pragma once
#include <cjson/cJSON.h>

#include <vector>

#include "ostrel/export.h"

/// Results of OstrelWindow::eventHandling that the loop acts on. After any other it goes on with the next queued event.
constexpr int WIN_REDRAW = 25;      ///< go on to the next frame; also the code of the event that toggleDrawState posts
constexpr int WIN_BACK = 1002;      ///< remove this window, unless it is the last one
constexpr int WIN_QUIT = 1003;      ///< leave runWindows
constexpr int WIN_QUIT_ALT = 1004;  ///< the same
constexpr int WIN_CLOSE = 1005;     ///< remove this window; without windows the loop ends

/// A window. The order of the virtual operations is the binary interface.
/// Its life: made by the host or a menu; init() if it came through the popup list; then onFrame, preDraw, draw and
/// eventHandling while it is on top; onPop when a back or close result removes it; quit(); deletion.
/// In onFrame, preDraw, draw and eventHandling it may take itself off the stack and delete itself: the loop touches it
/// no more, calls neither onPop nor quit, and goes on with the next frame.
class OSTREL_API OstrelWindow {
public:
    /// @param titleIndex of its title among the interface strings, negative for none.
    /// @param typeCode a kind code of the creator's choice. The loop reads its sign alone: a window of a negative type
    ///        is transient, deleted before the others when it asks to quit.
    OstrelWindow(int titleIndex, int typeCode);
    OstrelWindow(const OstrelWindow&) = delete;
    OstrelWindow& operator=(const OstrelWindow&) = delete;
    /// Windows are deleted through this class.
    virtual ~OstrelWindow();

    /// Handles at most one event, as wait_event gives it, and must not block. Called at least once a frame, also with
    /// nothing pending. @return one of the results above; any other number, a KeyCode or a negative one included, is
    /// allowed and means nothing to the loop.
    virtual int eventHandling() = 0;
    /// Renders the whole window into the current render target.
    virtual void draw() = 0;
    /// Called just before the window is deleted; releases what init acquired.
    virtual void quit() = 0;
    /// Called when a queued popup is put onto the stack. Windows pushed by the host get no such call.
    virtual void init() = 0;
    /// Adds the window's own members to its object in the file of saveWindowsState. @param obj stays the caller's.
    /// The shared body adds nothing.
    virtual void saveState(cJSON* obj) = 0;
    /// For the host, which reads back what saveState wrote; the library never calls it. The shared body returns 0.
    virtual int restoreState() = 0;
    /// Called once a frame, before drawing, also while drawing is off. The shared body does nothing.
    virtual void onFrame() = 0;
    /// Called just before draw, while drawing is on.
    virtual void preDraw();
    /// Called before quit() when a back or close result removes the window.
    virtual void onPop();
    /// @return the title's text in the user's language, "" without a title; good until the language strings change.
    virtual const char* getTitle();

    /// Logs "title <text>, type <type>".
    void dump();

    /// Draws the navigation bar: the title, the back icon and, from right to left, the status items of bars.h (battery,
    /// sound, plugged-in audio, Wi-Fi, Bluetooth). @param y moves the whole bar, 0 in place. @return the width that the
    /// status items take.
    int drawNavBar(int y);
    /// Draws the bar at the bottom, which tells the buttons that confirm, go back and open the menu (texts 4, 5 and 7
    /// of getLangStr). With SHM_BCONFIRM set, B confirms and A goes back. @param y moves the whole bar, 0 in place.
    /// @return where the next button would start.
    int drawStatBar(int y);

    int title;  ///< index among the interface strings, negative for none
    int type;   ///< kind code of the creator's choice, negative for a transient window
};

/// The stack that runWindows is running: set when it starts, and kept when it returns (empty by then). A loop inside a
/// loop puts the outer stack back.
extern OSTREL_API std::vector<OstrelWindow*>* gWinList;
/// The popup waiting to be shown, which the list owns; see add2PopupList. One that is still queued when runWindows
/// returns is shown by the next.
extern OSTREL_API std::vector<OstrelWindow*> gPopupList;
/// Whether the loop draws; set it with toggleDrawState. While it is false windows receive input at the same pace.
extern OSTREL_API bool gDrawWindow;

/// The main loop: draws and presents the top window, lets it handle the queued events, and sleeps for the rest of the
/// frame time. Keeps the key-repeat thread running for as long. Returns when the stack is empty or a window has asked
/// to quit; by then every window of @p stack has been freed. A window may run a loop of its own with another stack.
/// SDL_QUIT shuts SDL down, and the loop goes on without a screen.
OSTREL_API void runWindows(std::vector<OstrelWindow*>& stack);
/// Queues @p w, never null, as the next popup and takes it over. The newest always wins: whatever was still queued gets
/// quit(), without ever having got init(), and is deleted, and so is what these queue from quit(); what those queue in
/// turn goes when @p w is shown.
OSTREL_API void add2PopupList(OstrelWindow* w);
/// Switches the loop's drawing. Switching on also posts an SDL_USEREVENT with code WIN_REDRAW. Threads: any.
OSTREL_API void toggleDrawState(bool on);
/// Asks for the boost frame rate for the next @p ms milliseconds of frames; a shorter request never shortens a running
/// boost. Below 1 ends it. Threads: any.
OSTREL_API void touchBoostFps(int ms);
/// Sets the idle and the boost frame rate in frames per second (10 and 30 at load). 5 or less gives the default; above
/// 1000 the loop does not sleep.
OSTREL_API void setOstrelWindowFps(int normal, int boost);
/// Frees every window from the top down, and logs each.
OSTREL_API void freeWindows(std::vector<OstrelWindow*>& stack);
/// Writes the windows as JSON: {"list": [{"title": index, "type": type, what saveState adds}, ...]}, bottom window
/// first. An empty stack leaves the file as it is. @param path is emptied first; a file that cannot be opened is left
/// out without a word.
OSTREL_API void saveWindowsState(std::vector<OstrelWindow*>& stack, const char* path);
