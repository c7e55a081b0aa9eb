/// @file  art_panel.h: the panel beside a list of games, with the picture of the row under the cursor.
#pragma once
#include <string>

#include "windows/launcher_window.h"

namespace launcher {

class GameRow;

/// Lists of games are half as wide as others; the panel stands at their right.
constexpr const char* kHalfRowFocused = "skin/bg-half-f.png";
constexpr const char* kHalfRowNormal = "skin/bg-half-n.png";
constexpr int kHalfListWidth = 860;
constexpr SDL_Rect kHalfListPlace{kListPlace.x, kListPlace.y, kHalfListWidth, kListPlace.h};

/// Draws the panel at the right of the screen.
class ArtPanel {
public:
    /// Draws it for @p row. Below the picture (or, in its place, the icon that the row shows) stand the system and
    /// @p note, each in one line.
    void draw(GameRow& row, const std::string& note);

private:
    const std::string& systemName(const GameRow& row);

    std::string mPath;      // of the row that mSystem belongs to
    std::string mLanguage;  // that mSystem is in
    std::string mSystem;
};

/// What every frame of a window with pictures of games is framed in: pictures that have come are taken over before, and
/// those that nobody asked for are dropped after it.
class ArtFrame {
public:
    ArtFrame();
    ~ArtFrame();
    ArtFrame(const ArtFrame&) = delete;
    ArtFrame& operator=(const ArtFrame&) = delete;
};

}  // namespace launcher
