/// @file  text_menu.h: a list menu that owns its text rows.
/// Threads: UI thread only.
#pragma once
#include <vector>

#include "ostrel/export.h"
#include "ostrel/menu_item.h"
#include "ostrel/text_menu_drawer.h"

class OSTREL_API TextMenu : public TextMenuDrawer {
public:
    TextMenu(const char* selBg, const char* normalBg, int itemsPerPage, int ySpace);
    ~TextMenu() override;
    TextMenuItemProvider* getItemByIndex(int index) override;
    int getListNum() override;
    void removeItem(int index) override;
    void clearItemList() override;
    virtual void freeListItem();

    void insertItem(void* item);
    void insertItemSorted(void* item, int (*cmp)(void*, void*));
    int insertItemUnique(TextMenuItem* item);

    std::vector<TextMenuItemProvider*> items;
};
