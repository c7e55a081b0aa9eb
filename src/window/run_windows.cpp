#include <SDL.h>

#include <algorithm>

#include "ostrel/log.h"
#include "ostrel/screen.h"
#include "ostrel/window.h"
#include "window/frame_pacing.h"
#include "window/key_repeat.h"

std::vector<OstrelWindow*>* gWinList = nullptr;
std::vector<OstrelWindow*> gPopupList;
bool gDrawWindow = true;

namespace {

using WindowStack = std::vector<OstrelWindow*>;

// However a window behaves, its frame ends: at the latest after this many passes, or after two for each event queued
// at the first, whichever is more. A window that leaves its events in the queue would else keep the loop from drawing.
constexpr int kPassesAtLeast = 64;

// What a result of eventHandling means for the loop.
enum class Next { Event, Frame, End };

struct Loop {
    WindowStack& stack;
    SDL_Event peeked{};  // the last event seen waiting in the queue, in whichever frame that was
};

bool isOnStack(const WindowStack& stack, const OstrelWindow* window) {
    return std::find(stack.begin(), stack.end(), window) != stack.end();
}

// A window may push or remove others while it is asked, so it is found by its address and not by its place.
void deleteFromStack(WindowStack& stack, OstrelWindow* window) {
    window->quit();
    delete window;
    stack.erase(std::remove(stack.begin(), stack.end(), window), stack.end());
}

void discard(WindowStack& windows) {
    const WindowStack discarded = std::move(windows);
    windows.clear();
    for (OstrelWindow* window : discarded) {
        window->quit();
        delete window;
    }
}

// A window may take itself off the stack and delete itself in any of the calls: after each it is looked for.
// @return whether it still is on the stack; if not, it is not presented either.
bool drawFrame(const WindowStack& stack, OstrelWindow* window) {
    window->onFrame();
    if (!isOnStack(stack, window)) return false;
    if (!__atomic_load_n(&gDrawWindow, __ATOMIC_RELAXED)) return true;
    window->preDraw();
    if (!isOnStack(stack, window)) return false;
    window->draw();
    if (!isOnStack(stack, window)) return false;
    ScreenUpdateAndFlip();
    return true;
}

// The list is taken first: a popup queued by what runs here waits for the next frame.
void promotePopup(WindowStack& stack) {
    WindowStack waiting;
    waiting.swap(gPopupList);
    OstrelWindow* popup = waiting.back();
    waiting.pop_back();
    popup->init();
    tprintf("add popup window\n");
    stack.push_back(popup);
    discard(waiting);
}

Next removeWindow(WindowStack& stack, OstrelWindow* window, int result) {
    if (isOnStack(stack, window)) {
        window->onPop();
        deleteFromStack(stack, window);
    }
    tprintf("a is %d, popup current window\n", result);
    return Next::Frame;
}

// Windows that are not transient stay, to be freed with the rest.
Next quitWindows(WindowStack& stack, OstrelWindow* window, int result) {
    if (isOnStack(stack, window) && window->type < 0) deleteFromStack(stack, window);
    tprintf("a is %d, quit windows\n", result);
    return Next::End;
}

Next actOn(int result, WindowStack& stack, OstrelWindow* window) {
    switch (result) {
        case WIN_REDRAW:
            return Next::Frame;
        case WIN_BACK:
            return stack.size() > 1 ? removeWindow(stack, window, result) : Next::Event;
        case WIN_CLOSE:
            return removeWindow(stack, window, result);
        case WIN_QUIT:
        case WIN_QUIT_ALT:
            return quitWindows(stack, window, result);
        default:
            return Next::Event;
    }
}

// Looks through a temporary: SDL may write into the buffer although it reports no event.
bool peekEvent(SDL_Event& peeked) {
    SDL_PumpEvents();
    SDL_Event next;
    if (SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) <= 0) return false;
    peeked = next;
    return true;
}

int passesForQueuedEvents() {
    const int queued = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
    return std::max(kPassesAtLeast, 2 * queued);
}

// Lets the window handle what is queued. It is asked at least once, with nothing queued too.
Next handleEvents(Loop& loop, OstrelWindow* window) {
    int passes = kPassesAtLeast;
    for (int pass = 1;; ++pass) {
        const Next next = actOn(window->eventHandling(), loop.stack, window);
        if (next != Next::Event) return next;
        if (!peekEvent(loop.peeked)) return Next::Frame;
        if (!isOnStack(loop.stack, window)) return Next::Frame;  // what the window ran has removed it
        if (pass == 1) passes = passesForQueuedEvents();
        if (pass == passes) return Next::Frame;
    }
}

// @return whether the loop goes on.
bool runFrame(Loop& loop) {
    const uint64_t frameStartMs = systemms();
    OstrelWindow* window = loop.stack.back();
    if (!drawFrame(loop.stack, window)) return true;
    if (!gPopupList.empty()) {
        promotePopup(loop.stack);  // drawn in the very next frame: no events, no sleep
        return true;
    }
    const Next next = handleEvents(loop, window);
    // The quit event reaches the window through wait_event as well, and the loop goes on.
    if (loop.peeked.type == SDL_QUIT) ostrel::quitSdlBetweenRepeats();
    if (next == Next::End) return false;
    ostrel::paceFrame(frameStartMs);
    return true;
}

// Names the running stack; a loop inside a loop puts the outer one back.
class RunningStack {
public:
    explicit RunningStack(WindowStack& stack) : mOuter(sDepth++ == 0 ? &stack : gWinList) { gWinList = &stack; }
    ~RunningStack() {
        --sDepth;
        gWinList = mOuter;
    }
    RunningStack(const RunningStack&) = delete;
    RunningStack& operator=(const RunningStack&) = delete;

private:
    static int sDepth;
    WindowStack* mOuter;
};
int RunningStack::sDepth = 0;

}  // namespace

void runWindows(std::vector<OstrelWindow*>& stack) {
    tprintf("runWindows\n");
    const RunningStack running(stack);
    ostrel::clearRepeatKeys();
    const ostrel::KeyRepeatScope repeat;
    Loop loop{stack};
    while (!stack.empty() && runFrame(loop)) {
    }
    freeWindows(stack);
}

void add2PopupList(OstrelWindow* w) {
    // Twice, since a dropped popup may queue a successor from its quit(), and no more, since that one may do the same
    // for ever. What is left stands before the new one, which is shown.
    // (PopupThatAlwaysQueuesASuccessorDoesNotHoldUpANewOne)
    discard(gPopupList);
    discard(gPopupList);
    gPopupList.push_back(w);
}

void toggleDrawState(bool on) {
    __atomic_store_n(&gDrawWindow, on, __ATOMIC_RELAXED);
    if (!on) return;
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    event.user.code = WIN_REDRAW;
    SDL_PushEvent(&event);
}

void freeWindows(std::vector<OstrelWindow*>& stack) {
    tprintf("%ld window to free\n", static_cast<long>(stack.size()));
    while (!stack.empty()) {
        OstrelWindow* window = stack.back();
        tprintf("free window:");
        window->dump();
        stack.pop_back();
        window->quit();
        delete window;
    }
}
