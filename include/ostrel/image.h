/// @file  image.h: images from the theme, and thumbnails.
/// Threads: UI thread only.  Owner: who gets a new surface deletes it.
#pragma once
#include "ostrel/export.h"

class OstrelSurface;

OSTREL_API OstrelSurface* LoadOstrelSurface(const char* themeDir, const char* fallbackDir, const char* name);
OSTREL_API OstrelSurface* LoadOstrelSurfaceSpecSized(const char* path, int width, int height, const char* name,
                                                     bool fallback, bool keepRatio);
