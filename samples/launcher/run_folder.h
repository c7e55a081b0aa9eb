/// @file  run_folder.h: the folder that the launcher works in.
/// The library looks in the working directory for "regular.ttf", for the language files of "lang/" and for images that
/// a theme lacks. The run folder holds links to them, so that nothing is written beside the sources.
#pragma once
#include "options.h"

namespace launcher {

/// Makes the run folder, fills it and enters it. @return false after a message on standard error.
bool enterRunFolder(const Options& options);
/// Puts into @p root what the library looks for on a console. Files that are there stay as they are: write another
/// capacity into the battery's file, and the bar on the screen follows. enterRunFolder does so for the run folder's own
/// device. @return false after a message on standard error.
bool makeDevice(const std::string& root);

}  // namespace launcher
