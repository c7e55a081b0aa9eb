/// @file  status_block.h: the console's status block, where other programs reach it too.
/// On a console the volume, the backlight and the switches lie in memory that the launcher, the on-screen display and
/// the games share. Here that memory is a file of 21 ints in the machine's byte order, mapped by all who use it: a
/// value that another program writes counts from the next frame on, as if the player had changed it. Threads: any; each
/// value is read and written as a whole.
#pragma once
#include <array>
#include <atomic>
#include <string>

/// One int for each ShmKey of "ostrel/host.h".
struct ShmInfo {
    std::array<std::atomic<int>, 21> values;
};

namespace launcher {

/// Maps the block in @p file, which is made, all zero, when it is missing. Whoever writes to the file must not shorten
/// it. @return the block, which stays mapped until the program ends; null when there is none to be had, and the caller
/// then uses memory of its own.
ShmInfo* mapStatusBlock(const std::string& file);

}  // namespace launcher
