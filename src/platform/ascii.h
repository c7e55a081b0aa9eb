// Comparisons that know ASCII only, so that the locale of the host changes no answer.
#pragma once

namespace ostrel {

constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Bytes outside A-Z are compared as they are, those of UTF-8 characters too. Neither text may be null.
inline bool equalIgnoringCase(const char* a, const char* b) {
    for (; asciiLower(*a) == asciiLower(*b); ++a, ++b) {
        if (*a == '\0') return true;
    }
    return false;
}

}  // namespace ostrel
