#include "ostrel/log.h"
#include "ostrel/window.h"
#include "platform/handles.h"

namespace {

using ostrel::FilePtr;
using ostrel::JsonPtr;
using ostrel::JsonText;

// Appends the window's object to the list, which owns it then.
void saveWindow(OstrelWindow* window, cJSON* list) {
    tprintf("save state for window %p\n", static_cast<void*>(window));
    JsonPtr object{cJSON_CreateObject()};
    if (!object) return;
    cJSON_AddNumberToObject(object.get(), "title", window->title);
    cJSON_AddNumberToObject(object.get(), "type", window->type);
    window->saveState(object.get());
    if (cJSON_AddItemToArray(list, object.get()) != 0) static_cast<void>(object.release());
}

}  // namespace

void saveWindowsState(std::vector<OstrelWindow*>& stack, const char* path) {
    if (stack.empty()) return;
    tprintf("%d wins need to be saved\n", static_cast<int>(stack.size()));
    const FilePtr file{path == nullptr ? nullptr : std::fopen(path, "w+")};
    if (!file) return;
    const JsonPtr root{cJSON_CreateObject()};
    cJSON* list = cJSON_AddArrayToObject(root.get(), "list");
    if (list == nullptr) return;
    for (OstrelWindow* window : stack) saveWindow(window, list);
    const JsonText text{cJSON_Print(root.get())};
    if (!text) return;
    std::fputs(text.get(), file.get());
    tprintf("save %s\n", text.get());
}
