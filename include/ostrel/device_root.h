/// @file  device_root.h: the folder that stands for the console's file system.
#pragma once
#include "ostrel/export.h"

/// Puts @p root in front of every absolute device path that the library opens (/mnt, /usr/ostrel, /sys, /proc, /tmp,
/// /dev, and the paths inside shell commands, where it is quoted), so that a program can run on a folder laid out like
/// a console. Null or "" (the state at load) leaves every path and command as it is, to the byte. A trailing "/" is
/// dropped; the text is copied. Paths relative to the working directory are not touched.
/// Threads: call it before any other function of the library; paths handed out earlier become invalid.
OSTREL_API void setDeviceRoot(const char* root);
