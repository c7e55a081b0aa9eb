/// @file  visit.h: a visit, the keys that a played user presses and the pictures taken on the way.
/// A text file, one step a line; "#" begins a comment:
///     key NAME         presses and lets go: a b x y l r up down left right start select menu
///     hold NAME COUNT  holds a direction for COUNT frames
///     wait COUNT       lets COUNT frames pass
///     shot NAME        leaves NAME.png of what the window shows
#pragma once
#include <SDL.h>

#include <string>
#include <vector>

namespace launcher {

struct VisitStep {
    enum class Kind { Key, Hold, Wait, Shot };
    Kind kind = Kind::Wait;
    SDL_Keycode key = SDLK_UNKNOWN;  ///< Key, Hold
    int frames = 0;                  ///< Hold, Wait
    std::string name;                ///< Shot
};

/// Reads @p path into @p steps. @return "", or what is wrong with it ("FILE:LINE: ...").
std::string readVisit(const std::string& path, std::vector<VisitStep>& steps);

}  // namespace launcher
