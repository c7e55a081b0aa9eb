// A window to be typed at. The same one is shown on an X server by a program of its own and headless by the test.
#pragma once
#include <functional>
#include <string>

namespace ostreltest {

// Opens a screen with the dark theme and runs the window until MENU. shown gets the keys so far, as numbers with a
// blank before each, whenever a picture that shows them stands in the window.
// @return whether there was a screen.
bool runTypedWindow(const std::function<void(const std::string& keys)>& shown);

}  // namespace ostreltest
