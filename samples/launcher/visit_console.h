/// @file  visit_console.h: the folder that stands for a console while a visit is played.
/// Threads: UI thread.
#pragma once
#include <string>

#include "visit.h"

namespace launcher {

/// Makes @p root anew, so that a visit finds what every run of it has found. @return false after a message on standard
/// error.
bool makeFreshConsole(const std::string& root);

/// Puts the console's programs first in PATH: its wpa_cli answers with the content of the console's tmp/wpa_answer.
void useConsolePrograms(const std::string& root);

/// Carries out @p step, Device or Remove. @return false after a message on standard error.
bool changeConsole(const std::string& root, const VisitStep& step);

/// Asks wpa_cli once, in place of the thread that does so every few seconds by a clock that a visit does not drive.
void refreshWifi();

}  // namespace launcher
