/// @file  bars.h: the list counter at the bottom of the screen.
/// Threads: UI thread only.
#pragma once
#include "ostrel/export.h"

extern OSTREL_API int gListNumOfStatBarOffsetY;

OSTREL_API void drawListNumAtStatBar(int index, int total);
