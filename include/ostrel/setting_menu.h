/// @file  setting_menu.h: a page of settings, its rows, and the host's objects that hold the values.
/// Threads: UI thread only.  Owner: the menu deletes its rows, a row its action and its handler; images stay with the
/// host or the skin and must outlive the rows.  Null images are not drawn, null texts are empty.
#pragma once
#include <SDL.h>

#include <string>
#include <vector>

#include "ostrel/export.h"
#include "ostrel/menu_item.h"
#include "ostrel/text_menu_drawer.h"

/// A value that left and right change. The host implements it; the order of the operations is the binary interface.
class OSTREL_API ValueHandler {
public:
    /// Handlers are deleted through this class.
    virtual ~ValueHandler();
    /// Steps the value. @param key KEY_LEFT or KEY_RIGHT.
    virtual void changeValue(int key) = 0;
    /// Called once, just before the row deletes the handler: the place to save the value.
    virtual void release() = 0;
    /// @return the value as text, valid until the next call; at most 63 bytes of it are shown.
    virtual const char* getValueText() = 0;
};

/// A value that is on or off. The host implements it; the order of the operations is the binary interface.
class OSTREL_API SwitchHandler {
public:
    /// Handlers are deleted through this class.
    virtual ~SwitchHandler();
    /// @return whether it is on.
    virtual bool getValue() = 0;
    /// Turns it on or off.
    virtual void setValue(bool on) = 0;
    /// Called once, just before the row deletes the handler: the place to save the value.
    virtual void release() = 0;
};

/// A row with a title and, at the right, a value text or an icon.
class OSTREL_API SettingItem : public ItemDrawable {
public:
    /// A row titled by the interface text @p titleId.
    SettingItem(OstrelSurface* selBg, OstrelSurface* normalBg, int titleId, const char* valueText, Action* action);
    /// A row titled by the text itself.
    SettingItem(OstrelSurface* selBg, OstrelSurface* normalBg, const char* title, const char* valueText,
                Action* action);
    ~SettingItem() override;
    int draw(SDL_Rect& rect, bool selected) override;

    OstrelSurface* selBg;     ///< background while selected
    OstrelSurface* normalBg;  ///< background otherwise
    OstrelSurface* tailIcon;  ///< drawn 25 pixels left of the row's right end; null at construction
    int titleId;              ///< the interface text of the title, -1 when title is used
    std::string title;        ///< the title when titleId is negative
    std::string valueText;    ///< shown at the right when not empty
};

/// A row whose value left and right change.
class OSTREL_API SettingValueItem : public ItemDrawable {
public:
    /// Stores everything as given; @p action and @p changer become the row's own and may be null.
    SettingValueItem(OstrelSurface* selBg, OstrelSurface* normalBg, OstrelSurface* selLeftImg, OstrelSurface* leftImg,
                     OstrelSurface* selRightImg, OstrelSurface* rightImg, OstrelSurface* valueBoxImg, int titleId,
                     Action* action, ValueHandler* changer);
    ~SettingValueItem() override;
    int draw(SDL_Rect& rect, bool selected) override;
    /// Left and right step the value. @return 0 when they did, -1 for any other key and without a handler.
    int handleEvent(int key) override;

    OstrelSurface* selBg;         ///< background while selected
    OstrelSurface* normalBg;      ///< background otherwise
    OstrelSurface* selLeftImg;    ///< left end of the value box while selected
    OstrelSurface* leftImg;       ///< ... and otherwise
    OstrelSurface* selRightImg;   ///< right end of the value box while selected
    OstrelSurface* rightImg;      ///< ... and otherwise
    OstrelSurface* valueBoxImg;   ///< the value box, drawn while selected; with it the value stands centred in the box
    int titleId;                  ///< the interface text of the title
    ValueHandler* mValueChanger;  ///< holds the value; owned
    char valueBuf[64];            ///< the value text last drawn
};

/// A row that is on or off.
class OSTREL_API SettingSwitchItem : public ItemDrawable {
public:
    /// Stores everything as given; @p handler becomes the row's own and may be null.
    SettingSwitchItem(OstrelSurface* selBg, OstrelSurface* normalBg, OstrelSurface* onImg, OstrelSurface* offImg,
                      int titleId, SwitchHandler* handler);
    ~SettingSwitchItem() override;
    int draw(SDL_Rect& rect, bool selected) override;
    /// The confirm key, Y, left and right toggle the switch. @return 0 for every key: a switch has no other action.
    int handleEvent(int key) override;
    /// Toggles the switch.
    void switchValue();

    OstrelSurface* selBg;     ///< background while selected
    OstrelSurface* normalBg;  ///< background otherwise
    OstrelSurface* onImg;     ///< the switch while on
    OstrelSurface* offImg;    ///< the switch while off
    int titleId;              ///< the interface text of the title
    SwitchHandler* handler;   ///< holds the value; owned
};

/// A page of settings: six rows of 96 pixels, without numbers or counter.
class OSTREL_API SettingMenu : public TextMenuDrawer {
public:
    /// An empty page for the current theme.
    SettingMenu();
    /// Deletes every row.
    ~SettingMenu() override;
    /// Reads one key. Up and Down move the cursor, Left and Right go to the row under it. So do the confirm key and,
    /// whatever SHM_BCONFIRM says, Y; a row that has no use for these two has its action run (select).
    /// @return WIN_BACK for X and for the one of A and B that does not confirm, KEY_MENU for Menu and for a B that the
    ///         row took, the result of select() for a confirm key or a Y that it did not take, else -1.
    int eventHandling() override;
    /// Runs the action of the row under the cursor. @return its result, -1 when there is none.
    int select() override;
    ItemDrawable* getItemByIndex(int index) override;
    void draw() override;
    int getListNum() override;

    /// Appends @p item, which the menu then owns; null is ignored.
    void insertSettingItem(ItemDrawable* item);

    std::vector<ItemDrawable*> items;  ///< the rows, owned

private:
    OSTREL_HIDDEN int confirm(int key, int handledResult);
};
