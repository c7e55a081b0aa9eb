/// @file  menu_item.h: rows of menus and what they do when chosen.
/// Text rows answer TextMenuItemProvider, settings rows answer ItemDrawable and draw themselves; what a row does is an
/// Action. Menus read a text row through the interface alone, so a program may supply rows of its own.
/// Threads: UI thread only.  Binary interface: the order of virtual operations and fields; new ones go last.
/// Owner: a menu deletes its rows through their virtual destructors. Icons stay with the program and must outlive their
/// rows; what getIconFromCache returns does not, it is good for one draw.
#pragma once
#include <SDL.h>

#include <string>

#include "ostrel/export.h"

class OstrelSurface;

/// What an item or dialog runs when chosen. It may delete the row, the menu or the window that runs it: the library
/// touches none of them once the call has returned.
class OSTREL_API Action {
public:
    /// Actions are deleted through this class.
    virtual ~Action();
    /// The main action. @param item the row that was chosen. @return negative for failure or nothing done; else it
    /// reaches the window's eventHandling. 1 and 2 read as keys A and B there: they close a PopUpWindow, and steer a
    /// FileBrowserMenu (see its eventHandling).
    virtual int dowork(void* item) = 0;
    /// The second action, which key X runs. @param item as for dowork. @return negative for failure; here 0.
    virtual int xdowork(void* item);
    /// Left to the program; the library never calls it. @return here -1.
    virtual int hostQuery(void* argument);
    /// Left to the program; the library never calls it. @return here 0.
    virtual int hostFlag(void* argument);
};

/// Calls a plain function.
class OSTREL_API GeneralAction : public Action {
public:
    /// Keeps all four as given and owns none of them. @param fn may be null: dowork is then -1.
    GeneralAction(int (*fn)(void*), void* arg, bool debug = false, void* hostData = nullptr);
    /// Leaves the argument and the program's data alone.
    ~GeneralAction() override;
    /// Calls fn(arg). @param item is ignored. @return what the function returns, or -1 without a function. With debug
    ///        set, one log line says which of the two happened.
    int dowork(void* item) override;

    void* hostData;    ///< the program's own; the library never reads it
    int (*fn)(void*);  ///< what dowork calls; may be null
    void* arg;         ///< what fn is given
    bool debug;        ///< whether dowork logs
};

/// An action whose rows stand before those of a smaller group in a directory list; rows with any other action count as
/// group 0.
class OSTREL_API GroupedAction : public Action {
public:
    /// @param sortGroup greater groups come first.
    explicit GroupedAction(int sortGroup);
    /// Frees nothing.
    ~GroupedAction() override;

    int sortGroup;  ///< read when a directory is loaded
};

/// What every kind of row has in common: it can be deleted.
class OSTREL_API ListItem {
public:
    /// Rows are deleted through this class.
    virtual ~ListItem();
};

/// What a menu asks of a text row.
class OSTREL_API TextMenuItemProvider : public ListItem {
public:
    /// Frees nothing.
    ~TextMenuItemProvider() override;
    /// @return what choosing the row runs, or null.
    virtual Action* getAction() = 0;
    /// @return extra text C: initials to search by when extra text D does not serve; may be empty.
    virtual std::string getTextC() = 0;
    /// @return extra text A: left to the program; may be empty.
    virtual std::string getTextA() = 0;
    /// @return extra text D: initials to search by, one byte for each character of the label; may be empty.
    virtual std::string getTextD() = 0;
    /// @return the text of the row.
    virtual std::string getLabel() = 0;
    /// @return the small text below it, or empty for a row of one line.
    virtual std::string getSubLabel() = 0;
    /// @return the icon, still its owner's, or null.
    virtual OstrelSurface* getIcon() = 0;
    /// @return the part of the icon to draw, still the row's, or null for the whole icon.
    virtual SDL_Rect* getIconRect() = 0;
    /// @return whether the program has marked the row; menus of the library show no difference.
    virtual bool isMarked() = 0;
    /// @return a theme directory for this row alone, ending in "/", or empty for the theme of all.
    virtual std::string getThemePath() = 0;
};

/// A text row whose answers are its fields, which the program sets directly.
class OSTREL_API TextMenuItem : public TextMenuItemProvider {
public:
    /// Makes a row of one line, unmarked, without extra texts. @param label null leaves the label empty, so that
    /// labelId names the text. @param icon not owned; null for none, any other is logged with the label.
    /// @param action null for a row that does nothing. @param ownAction whether the row deletes the action.
    TextMenuItem(const char* label, OstrelSurface* icon, Action* action, bool ownAction);
    TextMenuItem(const TextMenuItem&) = delete;
    TextMenuItem& operator=(const TextMenuItem&) = delete;
    /// Deletes the action when it is the row's own; never the icon.
    ~TextMenuItem() override;
    Action* getAction() override;
    std::string getTextC() override;
    std::string getTextA() override;
    std::string getTextD() override;
    /// @return label, or the interface text labelId when it is empty.
    std::string getLabel() override;
    /// @return empty unless hasSubLabel is set; then subLabel, or the interface text subLabelId when it is empty.
    std::string getSubLabel() override;
    OstrelSurface* getIcon() override;
    /// @return null: the whole icon.
    SDL_Rect* getIconRect() override;
    bool isMarked() override;
    /// @return empty.
    std::string getThemePath() override;

    std::string label;    ///< the text shown
    int labelId = -1;     ///< getLangStr's index for an empty label; -1, which is no text, until the program sets it
    Action* action;       ///< may be null, and may be shared among rows that do not own it
    bool ownAction;       ///< whether the destructor deletes action
    bool marked = false;  ///< false at first
    OstrelSurface* icon;  ///< not owned; several rows may share one
    bool hasSubLabel = false;  ///< false at first, and then the row has one line whatever subLabel holds
    std::string subLabel;      ///< the small second line
    int subLabelId = -1;       ///< getLangStr's index for an empty subLabel; -1 until the program sets it
    std::string textA;         ///< extra text A
    std::string textC;         ///< extra text C
    std::string textD;         ///< extra text D
};

/// What a settings menu asks of a row that draws itself.
class OSTREL_API ItemDrawable : public ListItem {
public:
    /// @param action owned from now on; null for none.
    explicit ItemDrawable(Action* action);
    ItemDrawable(const ItemDrawable&) = delete;
    ItemDrawable& operator=(const ItemDrawable&) = delete;
    /// Deletes the action.
    ~ItemDrawable() override;
    /// Draws the row into @p rect of the render target. @param selected whether the cursor stands on it. @return 0.
    virtual int draw(SDL_Rect& rect, bool selected) = 0;
    /// @return non-zero when the row shows the cursor; here 1.
    virtual int isSelectable();
    /// Gives the row a key (see KeyCode). @return negative when the row has no use for it; here -1.
    virtual int handleEvent(int key);

    Action* action;  ///< owned; null for none
};
