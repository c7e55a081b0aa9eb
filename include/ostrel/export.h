/// @file  export.h: the marks that make a name part of the library's public interface.
#pragma once

/// Marks a function, variable or class as exported. Everything without the mark stays hidden inside the library.
#define OSTREL_API __attribute__((visibility("default")))

/// Marks a private helper of an exported class: it is no part of the interface and no program can come to lean on it.
#define OSTREL_HIDDEN __attribute__((visibility("hidden")))

/// Lets the compiler check a printf-like call. @param formatAt, firstAt: 1-based positions of the format and its first
/// value.
#define OSTREL_PRINTF(formatAt, firstAt) __attribute__((format(printf, formatAt, firstAt)))
