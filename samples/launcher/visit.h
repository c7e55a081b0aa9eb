/// @file  visit.h: a visit, the keys that a played user presses and the pictures taken on the way.
/// A text file, one step a line; "#" begins a comment, and one behind a shot or in the line above it is its caption:
///     option WORD...     words of a command line, before all steps; the real command line's own come after them
///     include NAME       the lines of NAME.visit, which lies beside this file and includes none itself
///     device PATH TEXT   writes TEXT and a line feed into a file of the console, in folders that are made; in TEXT,
///                        \n, \0, \\ and \xNN (two hexadecimal digits) stand for one byte
///     remove PATH        removes a file or folder of the console
///     key NAME           presses and lets go: a b x y l r up down left right start select menu
///     hold NAME COUNT    holds a direction for COUNT frames
///     wait COUNT         lets COUNT frames pass
///     shot NAME          leaves NAME.png of what the window shows
///     restart            closes the launcher, if it still runs, and starts it anew
/// What the device steps at the beginning, or right after a restart, do is done before the launcher starts.
#pragma once
#include <SDL.h>

#include <string>
#include <vector>

namespace launcher {

struct VisitStep {
    enum class Kind { Device, Remove, Key, Hold, Wait, Shot, Restart };
    Kind kind = Kind::Wait;
    SDL_Keycode key = SDLK_UNKNOWN;  ///< Key, Hold
    int frames = 0;                  ///< Hold, Wait
    std::string name;                ///< Shot; for Device and Remove the path below the console's root
    std::string text;                ///< Device
};

struct Visit {
    std::vector<std::string> options;
    std::vector<VisitStep> steps;
};

/// Reads @p path into @p visit. @return "", or what is wrong with it ("FILE:LINE: ...").
std::string readVisit(const std::string& path, Visit& visit);

}  // namespace launcher
