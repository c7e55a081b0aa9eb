/// @file  window_state.h: the windows as they were left.
#pragma once
#include <cjson/cJSON.h>

#include <vector>

#include "options.h"
#include "ostrel/window.h"

class ListMenu;

namespace launcher {

/// Makes the windows that the file of the last session tells of, bottom first. What it cannot make (a file that is
/// missing or broken, a folder that has gone) is left out, and the home window stands below everything in any case.
std::vector<OstrelWindow*> restoreWindows(const Options& options);

/// Adds cursor and visible range of @p menu to @p state, and puts them back.
void savePosition(cJSON* state, const ListMenu& menu);
void restorePosition(const cJSON* state, ListMenu& menu);

}  // namespace launcher
