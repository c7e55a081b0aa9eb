// What stands in for the shell that the library runs commands with.
#pragma once
#include <functional>
#include <string>

namespace ostreltest {

// Takes the place of system() in the whole program while it is set; without one, commands run for real. Set and cleared
// while no other thread runs.
std::function<int(const std::string& command)>& fakeShell();

}  // namespace ostreltest
