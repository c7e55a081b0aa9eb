/// @file  launcher_window.h: what the launcher's windows have in common: background, heading and hint row.
#pragma once
#include <SDL.h>

#include <string>

#include "ostrel/surface.h"
#include "ostrel/window.h"

namespace launcher {

/// Tells windows apart in a saved stack. Both are kept until the loop ends; transient windows have a negative type.
enum WindowType { kListWindow = 1, kDetailsWindow = 2 };

/// A full-screen window. It supplies the operations that most windows leave as the library has them.
class LauncherWindow : public OstrelWindow {
public:
    explicit LauncherWindow(WindowType type);
    void quit() override;
    void init() override;
    void saveState(cJSON* obj) override;
    int restoreState() override;
    void onFrame() override;

protected:
    /// Covers the whole screen.
    static void drawBackground();
    /// Draws @p image at its own size, or nothing when it is null.
    static void drawImage(OstrelSurface* image, int x, int y);
    /// The part of @p title that the heading has room for.
    static std::string fittingTitle(const std::string& title);
    /// The navigation bar, and left of its status items a short note (a search word), which may be empty.
    void drawHeading(const char* note);
    /// Draws one "button: what it does" of the hint row. @return where the next one starts.
    static int drawHint(OstrelSurface* button, const char* label, int x);
    /// The buttons that confirm and go back, as the settings have them.
    static OstrelSurface* confirmButton();
    static OstrelSurface* backButton();
};

}  // namespace launcher
