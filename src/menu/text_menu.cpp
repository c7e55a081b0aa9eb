#include "ostrel/text_menu.h"

#include <algorithm>

TextMenu::TextMenu(const char* selBgPath, const char* normalBgPath, int itemsPerPageCount, int ySpace)
    : TextMenuDrawer(selBgPath, normalBgPath, itemsPerPageCount, ySpace) {}

TextMenu::~TextMenu() { TextMenu::freeListItem(); }

TextMenuItemProvider* TextMenu::getItemByIndex(int index) {
    return index < 0 || index >= TextMenu::getListNum() ? nullptr : items[static_cast<std::size_t>(index)];
}

int TextMenu::getListNum() { return static_cast<int>(items.size()); }

void TextMenu::removeItem(int index) {
    if (index < 0 || index >= TextMenu::getListNum()) return;
    const auto place = items.begin() + index;
    TextMenuItemProvider* removed = *place;
    items.erase(place);
    delete removed;
}

void TextMenu::clearItemList() { freeListItem(); }

void TextMenu::freeListItem() {
    for (TextMenuItemProvider* item : items) delete item;
    items.clear();
}

void TextMenu::insertItem(void* item) { items.push_back(static_cast<TextMenuItemProvider*>(item)); }

void TextMenu::insertItemSorted(void* item, int (*cmp)(void*, void*)) {
    const auto place = std::find_if(items.begin(), items.end(), [&](void* other) { return cmp(item, other) <= 0; });
    items.insert(place, static_cast<TextMenuItemProvider*>(item));
}

int TextMenu::insertItemUnique(TextMenuItem* item) {
    if (item == nullptr) return 0;
    const auto hasSameLabel = [item](TextMenuItemProvider* other) {
        return other != nullptr && static_cast<TextMenuItem*>(other)->label == item->label;
    };
    if (std::any_of(items.begin(), items.end(), hasSameLabel)) return 0;
    items.push_back(item);
    return 1;
}
