/// @file  launcher.h: the launcher from start to end.
#pragma once
#include "options.h"

namespace launcher {

/// Runs until the user leaves. @return the exit code of the program.
int runLauncher(const Options& options);

}  // namespace launcher
