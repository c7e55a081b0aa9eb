/// @file  text_menu.h: a list menu that owns its text rows.
/// Rows are added before or while the menu is shown; whoever removes the row under the cursor moves the cursor.
/// Threads: UI thread only.  Owner: the menu deletes its rows through their virtual destructors; no row in it may be
/// deleted by anyone else.
/// Binary interface: the order of virtual operations and fields; new ones go last.
#pragma once
#include <vector>

#include "ostrel/export.h"
#include "ostrel/menu_item.h"
#include "ostrel/text_menu_drawer.h"

/// The ready-to-use list of text rows.
class OSTREL_API TextMenu : public TextMenuDrawer {
public:
    /// Makes an empty list. @param selBgPath, normalBgPath, itemsPerPage, ySpace as for TextMenuDrawer.
    TextMenu(const char* selBgPath, const char* normalBgPath, int itemsPerPage, int ySpace);
    /// Deletes every row.
    ~TextMenu() override;
    /// @return the row, or null for an index that names none and for a row inserted as null.
    TextMenuItemProvider* getItemByIndex(int index) override;
    /// @return the number of rows, null ones included.
    int getListNum() override;
    /// Removes and deletes a row; an index that names none is ignored. Cursor and visible range stay.
    void removeItem(int index) override;
    /// Deletes every row (through freeListItem). Cursor and visible range stay.
    void clearItemList() override;
    /// Deletes every row; the room for them is kept.
    virtual void freeListItem();

    /// Adds a row at the end. @param item a TextMenuItemProvider, owned from now on; null stands for a row that is not
    /// there yet.
    void insertItem(void* item);
    /// Adds a row before the first one that it does not sort after, so of equal rows the newest comes first.
    /// @param item as for insertItem. @param cmp gets the new row and one of the list, either of them null when it was
    /// inserted as null; a result of 0 or less puts the new row before that one.
    void insertItemSorted(void* item, int (*cmp)(void*, void*));
    /// Adds a row at the end unless one with the same label is there. Only the label fields are compared, byte by
    /// byte: rows labelled through labelId alone are all equal. Every row must be a TextMenuItem or null.
    /// @return 1, or 0 when it was not added and stays the caller's; null is never added.
    int insertItemUnique(TextMenuItem* item);

    std::vector<TextMenuItemProvider*> items;  ///< owned
};
