/// @file  launcher_window.h: what the launcher's full-screen windows have in common.
#pragma once
#include <SDL.h>

#include <string>
#include <vector>

#include "ostrel/surface.h"
#include "ostrel/window.h"
#include "texts.h"

class TextMenuDrawer;

namespace launcher {

/// Tells windows apart in a saved stack, so the numbers stay. Transient windows have a negative type of the library's.
enum WindowType {
    kHomeWindow = 1,
    kGamesWindow = 2,
    kGamePageWindow = 3,
    kSearchWindow = 4,
    kRecentWindow = 5,
    kSettingsWindow = 6,
    kAboutWindow = 7,
};

/// One "button: what it does" of the hint row. A null @p button leaves the hint out.
struct Hint {
    OstrelSurface* button;
    Text label;
};

/// A full-screen window. It supplies the operations that most windows leave as the library has them, and leaves the
/// loop when the launcher is to quit or to run a game.
class LauncherWindow : public OstrelWindow {
public:
    /// @param titleText of the heading; kTextNone for a window with a getTitle of its own.
    LauncherWindow(WindowType type, Text titleText);
    ~LauncherWindow() override;
    /// Leaves the loop when the launcher is to end, else calls handleInput.
    int eventHandling() final;
    void quit() override;
    void init() override;
    void saveState(cJSON* obj) override;
    int restoreState() override;
    void onFrame() override;
    /// Draws background and heading; a window draws the rest.
    void draw() override;

    /// Every window that lives, in no order.
    static const std::vector<LauncherWindow*>& all();
    /// Called after the theme has changed: images, fonts and colours are others from now on. Here nothing.
    virtual void themeChanged();
    /// Called after the language has changed, for windows that keep texts. Here nothing.
    virtual void languageChanged();

protected:
    /// Handles one key (wait_event or a menu's eventHandling). @return as OstrelWindow::eventHandling.
    virtual int handleInput() = 0;
    /// A short note in the heading, left of the clock; empty for none.
    virtual std::string headingNote();

    /// Draws @p image at its own size, or nothing when it is null.
    static void drawImage(OstrelSurface* image, int x, int y);
    /// Draws the hint row.
    static void drawHints(const std::vector<Hint>& hints);
    /// One line in the middle of a place, for a list that has nothing to show.
    static void drawNotice(const SDL_Rect& place, const std::string& text);
    /// The part of @p title that the heading has room for.
    static std::string fittingTitle(const std::string& title);

private:
    void drawHeading();
};

/// Fills a place of the screen. @param alpha 0..255: how much of what stands there it covers.
void fillPlace(SDL_Rect place, SDL_Color colour, Uint8 alpha);
constexpr Uint8 kSolid = 255;

/// Where lists stand, between the bars: five rows of 108 pixels with room for two lines of text, 8 pixels apart.
constexpr SDL_Rect kListPlace{0, 80, 1280, 572};
constexpr int kListRows = 5;
constexpr int kListGap = 8;

/// The row images of such a list.
constexpr const char* kRowFocused = "skin/bg-tall-f.png";
constexpr const char* kRowNormal = "skin/bg-tall-n.png";

/// Gives a list the row images @p focused and @p normal, and the text colour, of the present theme. TextMenuDrawer's
/// refresh does not serve here: it loads images of its own choice, which are lower than these rows.
void reloadRowImages(TextMenuDrawer& menu, const char* focused, const char* normal);

}  // namespace launcher
