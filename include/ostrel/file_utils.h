/// @file  file_utils.h: whole-file reads and writes, hexadecimal digits, and the search for a running process.
/// Threads: any.  Errors: by return value and one log line where stated; nothing throws.
/// Paths: taken as they are, relative ones from the working directory; no device root is put in front.
#pragma once
#include <cstdio>

#include "ostrel/export.h"

/// Reads the whole stream @p f from its beginning, 1 to 131071 bytes, into a new buffer that ends in a zero byte.
/// @param name what messages call the stream.
/// @return 0, or -1 with one log line for a size out of range (*out untouched) or a short read (*out holds the buffer).
///         -1 in silence for a null stream or when memory is short. The caller frees *out with free on both results.
OSTREL_API int loadContent(const char* name, FILE* f, char** out);

/// Reads the whole file into @p buf, which must be large enough: there is no bound and no terminator.
/// @return the number of bytes read, 0 when the file cannot be opened. Nothing is logged, a short read neither.
OSTREL_API int fileToMem(const char* path, void* buf);

/// Replaces the file's content by @p n bytes of @p buf (none when n is 0 or negative). When the file cannot be opened,
/// "can not open PATH" goes to standard output, past the log. Short writes are not reported.
OSTREL_API void dumpToFile(const char* path, const void* buf, int n);

/// Writes @p v in decimal, without a line feed: the form that sysfs and procfs attributes take.
OSTREL_API void fileWriteInt(const char* path, int v);

/// Writes the text @p s without a line feed; a null text leaves the file untouched.
OSTREL_API void fileWriteString(const char* path, const char* s);

/// @return the upper-case hexadecimal digit of @p v (0..15), or 255 for any other value.
OSTREL_API unsigned char HexToChar(unsigned char v);

/// @return the value 0..15 of a hexadecimal digit of either case, or 255 for any other character.
OSTREL_API unsigned char CharToHex(unsigned char c);

/// Looks through /proc for a process whose first argument, the program as it was started, holds @p name followed by its
/// end or a space. Only the first place where the name is met counts, and only the first 511 bytes of the argument.
/// @param verbose non-zero logs every candidate and the outcome.
/// @return the pid of the first match in directory order, or -1, for a null name too. Unless verbose, only an
///         unreadable /proc is logged. Nothing is remembered: each call looks anew.
OSTREL_API int check_process_exist(const char* name, int verbose);
