/// @file  run_program.h: another program, run to its end.
#pragma once
#include <string>
#include <vector>

namespace launcher {

/// Runs a program and waits for its end. No shell has a look at it: each argument arrives as it is. The program is
/// looked for in PATH when its name has no "/". It gets standard input, output and error and no other file of the
/// launcher's, and the signals as they are by default.
/// @return "", also when the program itself failed; or, when it could not be started, the system's reason.
std::string runProgram(const std::vector<std::string>& command);

}  // namespace launcher
