/// @file  menu_item.h: rows of menus and what they do when chosen.
/// Threads: UI thread only.
#pragma once
#include <SDL.h>

#include <string>

#include "ostrel/export.h"

class OstrelSurface;

/// What an item or dialog runs when chosen.
class OSTREL_API Action {
public:
    virtual ~Action();
    virtual int dowork(void* item) = 0;
    virtual int xdowork(void* item);
    virtual int hostQuery(void* argument);
    virtual int hostFlag(void* argument);
};

class OSTREL_API GeneralAction : public Action {
public:
    GeneralAction(int (*fn)(void*), void* arg, bool debug = false, void* hostData = nullptr);
    ~GeneralAction() override;
    int dowork(void* item) override;

    void* hostData;
    int (*fn)(void*);
    void* arg;
    bool debug;
};

/// An action whose rows sort before those of a smaller group in a directory list.
class OSTREL_API GroupedAction : public Action {
public:
    explicit GroupedAction(int sortGroup);
    ~GroupedAction() override;
    int sortGroup;
};

/// What every kind of row has in common: it can be deleted.
class OSTREL_API ListItem {
public:
    virtual ~ListItem();
};

class OSTREL_API TextMenuItemProvider : public ListItem {
public:
    ~TextMenuItemProvider() override;
    virtual Action* getAction() = 0;
    virtual std::string getTextC() = 0;
    virtual std::string getTextA() = 0;
    virtual std::string getTextD() = 0;
    virtual std::string getLabel() = 0;
    virtual std::string getSubLabel() = 0;
    virtual OstrelSurface* getIcon() = 0;
    virtual SDL_Rect* getIconRect() = 0;
    virtual bool isMarked() = 0;
    virtual std::string getThemePath() = 0;
};

class OSTREL_API TextMenuItem : public TextMenuItemProvider {
public:
    TextMenuItem(const char* label, OstrelSurface* icon, Action* action, bool ownAction);
    TextMenuItem(const TextMenuItem&) = delete;
    TextMenuItem& operator=(const TextMenuItem&) = delete;
    ~TextMenuItem() override;
    Action* getAction() override;
    std::string getTextC() override;
    std::string getTextA() override;
    std::string getTextD() override;
    std::string getLabel() override;
    std::string getSubLabel() override;
    OstrelSurface* getIcon() override;
    SDL_Rect* getIconRect() override;
    bool isMarked() override;
    std::string getThemePath() override;

    std::string label;
    int labelId;
    Action* action;
    bool ownAction;
    bool marked;
    OstrelSurface* icon;
    bool hasSubLabel;
    std::string subLabel;
    int subLabelId;
    std::string textA;
    std::string textC;
    std::string textD;
};

class OSTREL_API ItemDrawable : public ListItem {
public:
    explicit ItemDrawable(Action* action);
    ItemDrawable(const ItemDrawable&) = delete;
    ItemDrawable& operator=(const ItemDrawable&) = delete;
    ~ItemDrawable() override;
    virtual int draw(SDL_Rect& rect, bool selected) = 0;
    virtual int isSelectable();
    virtual int handleEvent(int key);

    Action* action;
};
