#include "ostrel/file_browser_menu.h"

#include <algorithm>
#include <string_view>

#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/log.h"
#include "ostrel/window.h"
#include "platform/c_string.h"

namespace {

constexpr int kLastRowOfFirstPage = 5;

bool endsIn(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

bool leadsUp(std::string_view path) { return endsIn(path, "..") || endsIn(path, "../"); }

// Tells whether a menu lives on after it has run an action, which may delete it. Kept outside of the menu, whose fields
// are the binary interface, in a chain: an action may run a main loop with another browser.
class Watch {
public:
    explicit Watch(const FileBrowserMenu* menu) : mMenu(menu), mOuter(sInnermost) { sInnermost = this; }
    ~Watch() { sInnermost = mOuter; }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    bool menuIsGone() const { return mMenu == nullptr; }
    static void forget(const FileBrowserMenu* menu) {
        for (Watch* watch = sInnermost; watch != nullptr; watch = watch->mOuter) {
            if (watch->mMenu == menu) watch->mMenu = nullptr;
        }
    }

private:
    static inline Watch* sInnermost = nullptr;
    const FileBrowserMenu* mMenu;
    Watch* mOuter;
};

}  // namespace

FileBrowserMenu::FileBrowserMenu(const char* base, const char* start, const char* selBgPath, const char* normalBgPath,
                                 int ySpace, int rowsPerPage)
    : TextMenuDrawer(selBgPath, normalBgPath, rowsPerPage, ySpace),
      baseDir(ostrel::orEmpty(base)),
      startDir(ostrel::orEmpty(start)),
      browser(file_filter, file_handler),
      curList(nullptr) {}

FileBrowserMenu::~FileBrowserMenu() { Watch::forget(this); }

int FileBrowserMenu::eventHandling() {
    SDL_Event event{};
    Watch watch(this);
    const int result = handleEvent(wait_event(&event));
    if (watch.menuIsGone()) return result == KEY_A || result == KEY_B ? FILE_BROWSER_CHANGE_DIR : result;
    const bool bConfirms = GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0;
    switch (result) {
        case KEY_B:
            return bConfirms ? FILE_BROWSER_CHANGE_DIR : goBack();
        case KEY_A:
            return bConfirms ? goBack() : FILE_BROWSER_CHANGE_DIR;
        case FILE_BROWSER_CHANGE_DIR:
            return changeDir(event);
        default:
            return result;
    }
}

int FileBrowserMenu::goBack() {
    if (browser.isBaseDir()) return WIN_BACK;
    curList = nullptr;
    show(browser.ParentDir());
    return FILE_BROWSER_CHANGE_DIR;
}

// A row's action may return the same number as the event's code; only an event of that code carries a path.
int FileBrowserMenu::changeDir(const SDL_Event& event) {
    const bool asked = event.type == SDL_USEREVENT && event.user.code == FILE_BROWSER_CHANGE_DIR;
    if (!asked || event.user.data1 == nullptr) return FILE_BROWSER_CHANGE_DIR;
    const std::string path = static_cast<const char*>(event.user.data1);  // its owner may go with the old list
    tprintf("change dir %s\n", path.c_str());
    curList = nullptr;
    show(leadsUp(path) ? browser.ParentDir() : browser.ChildDir(path.c_str()));
    tprintf("change dir return %d\n", FILE_BROWSER_CHANGE_DIR);
    return FILE_BROWSER_CHANGE_DIR;
}

void FileBrowserMenu::show(std::vector<void*>* list) {
    curList = list;
    restorePos(0, 0, std::max(0, std::min(getListNum() - 1, kLastRowOfFirstPage)));
}

TextMenuItem* FileBrowserMenu::getItemByIndex(int index) {
    if (index < 0 || index >= getListNum()) return nullptr;
    return static_cast<TextMenuItem*>((*curList)[static_cast<std::size_t>(index)]);
}

void FileBrowserMenu::draw() { TextMenuDrawer::draw(); }

int FileBrowserMenu::getListNum() { return curList == nullptr ? 0 : static_cast<int>(curList->size()); }

// The old list goes with the browser's cache, and the host's callbacks may ask the menu for its rows meanwhile.
std::vector<void*>* FileBrowserMenu::LoadDir() {
    curList = nullptr;
    curList = browser.LoadDir(baseDir.c_str(), startDir.empty() ? nullptr : startDir.c_str());
    return curList;
}

const char* FileBrowserMenu::getCurrentDir() { return browser.getCurrentDir(); }
