#include "ostrel/menu_item.h"

#include "ostrel/language.h"
#include "ostrel/log.h"
#include "platform/c_string.h"

Action::~Action() = default;
int Action::xdowork(void*) { return 0; }
int Action::hostQuery(void*) { return -1; }
int Action::hostFlag(void*) { return 0; }

GeneralAction::GeneralAction(int (*fnToCall)(void*), void* argument, bool debugLines, void* hostDataGiven)
    : hostData(hostDataGiven), fn(fnToCall), arg(argument), debug(debugLines) {}

GeneralAction::~GeneralAction() = default;

int GeneralAction::dowork(void*) {
    if (fn == nullptr) {
        if (debug) tprintf("GeneralAction dowork dosth %p\n", static_cast<void*>(nullptr));
        return -1;
    }
    if (debug) tprintf("GeneralAction dowork\n");
    return fn(arg);
}

GroupedAction::GroupedAction(int sortGroupGiven) : sortGroup(sortGroupGiven) {}

GroupedAction::~GroupedAction() = default;

ListItem::~ListItem() = default;

TextMenuItemProvider::~TextMenuItemProvider() = default;

TextMenuItem::TextMenuItem(const char* labelText, OstrelSurface* iconImage, Action* actionToRun, bool ownActionToo)
    : label(ostrel::orEmpty(labelText)), action(actionToRun), ownAction(ownActionToo), icon(iconImage) {
    if (icon != nullptr) tprintf("%s labelicon = %p\n", label.c_str(), static_cast<void*>(icon));
}

TextMenuItem::~TextMenuItem() {
    if (ownAction) delete action;
}

Action* TextMenuItem::getAction() { return action; }
std::string TextMenuItem::getTextC() { return textC; }
std::string TextMenuItem::getTextA() { return textA; }
std::string TextMenuItem::getTextD() { return textD; }

std::string TextMenuItem::getLabel() { return label.empty() ? getLangStr(labelId) : label; }

std::string TextMenuItem::getSubLabel() {
    if (!hasSubLabel) return {};
    return subLabel.empty() ? getLangStr(subLabelId) : subLabel;
}

OstrelSurface* TextMenuItem::getIcon() { return icon; }
SDL_Rect* TextMenuItem::getIconRect() { return nullptr; }
bool TextMenuItem::isMarked() { return marked; }
std::string TextMenuItem::getThemePath() { return {}; }

ItemDrawable::ItemDrawable(Action* actionToRun) : action(actionToRun) {}

ItemDrawable::~ItemDrawable() { delete action; }

int ItemDrawable::isSelectable() { return 1; }
int ItemDrawable::handleEvent(int) { return -1; }
