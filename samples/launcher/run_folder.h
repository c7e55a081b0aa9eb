/// @file  run_folder.h: the folder that the launcher works in.
/// The library looks in the working directory for "regular.ttf", for the language files of "lang/" and for images that
/// a theme lacks. The run folder holds links to them, so that nothing is written beside the sources.
#pragma once
#include "options.h"

namespace launcher {

/// Makes the run folder, fills it and enters it. @return false after a message on standard error.
bool enterRunFolder(const Options& options);

}  // namespace launcher
