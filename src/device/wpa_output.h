// What wpa_cli prints for "status" and "signal_poll": lines of KEY=VALUE.
#pragma once
#include "ostrel/wifi.h"

namespace ostrel {

// Keys are found by plain search, so the first one anywhere in the text counts, and a value goes from the first
// character that is not blank, on the next line if need be, to the next blank: an empty value takes the next line.
// What is missing stays zero.
WpaMsg parseWpaOutput(const char* text);

}  // namespace ostrel
