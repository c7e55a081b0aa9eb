/// @file  image.h: images from the theme, and thumbnails.
/// Threads: UI thread only.  Owner: who gets a new surface deletes it.
/// Files: PNG and whatever else SDL2_image reads, except XCF, whose damaged files it does not survive: those count as
///   broken. Directory and name are put together as they are, so directories end in "/". Images without 32 bits in a
///   pixel are copied into 32-bit ones, with a log line, except thumbnails that have the wanted size already. Every
///   surface keeps its pixels in memory, so that it can be cut and scaled later.
/// A file that is missing or cannot be read gives null, and nothing is logged.
#pragma once
#include "ostrel/export.h"

class OstrelSurface;

/// Loads an image of the theme. @param themeDir the theme, or null. @param fallbackDir where the image is taken from
/// when the theme has none, with a log line that names both. @param name the file; one that begins with "/" is loaded
/// as it is and has no substitute. @return a new surface, or null also when no texture can be made.
OSTREL_API OstrelSurface* LoadOstrelSurface(const char* themeDir, const char* fallbackDir, const char* name);

/// Loads an image and scales it to a size, for thumbnails, with the log line "thumb3bytes pixel N" of N bytes in a
/// pixel. An image of just that size stays as it is, its bytes in a pixel too, without that line.
/// @param path the file. @param width, height the wanted size in pixels. @param name, fallback when @p fallback is true
/// and @p path cannot be read: the file to take instead, looked for as it is when it begins with "/", then in
/// gThemePath, then, with a log line, in the working directory. @param keepRatio true for the largest size of the
/// image's own ratio within @p width x @p height.
/// @return a new surface, which draws nothing when no texture can be made; null when no file can be read, a size is
///         negative, or memory has no room for it. Without memory for the 32-bit copy of the image, the process stops.
OSTREL_API OstrelSurface* LoadOstrelSurfaceSpecSized(const char* path, int width, int height, const char* name,
                                                     bool fallback, bool keepRatio);
