/// @file  bars.h: the list counter at the bottom of the screen.
/// It draws into the current render target, anew on every call: nothing is kept.
/// Threads: UI thread only.  Units: pixels of the 1280 x 720 screen.
#pragma once
#include "ostrel/export.h"

/// Top of the list counter; 672 until a program moves it.
extern OSTREL_API int gListNumOfStatBarOffsetY;

/// Draws "index/total" in gStatFont and gStatColorTxt, ending at x = 1256, with its top at gListNumOfStatBarOffsetY.
/// Without the font nothing is drawn. @param index the cursor's row counted from 1, @p total the number of rows.
OSTREL_API void drawListNumAtStatBar(int index, int total);
