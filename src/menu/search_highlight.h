// Which bytes of a drawn label a search keyword stands for.
#pragma once
#include <cstddef>
#include <string>

class TextMenuItemProvider;

namespace ostrel {

// A run of bytes; none when count is 0.
struct ByteRun {
    std::size_t start = 0;
    std::size_t count = 0;
};

// Finds keyword in drawn, the row's label as it is shown: whole, or cut with "..." at its end. The search runs over the
// initials of the whole label, one byte for each character, and its hit counts characters of drawn; a hit that begins
// past the end of drawn is none. The first of these that hits wins, without regard to case:
//   the label itself, when it is all ASCII;
//   the row's extra text D, then C, when it has one byte for each character of the label: the program's own initials;
//   the pinyin initials of the label;
//   the keyword's own bytes in drawn, for a keyword that is typed as it stands.
ByteRun findKeyword(const std::string& keyword, const std::string& drawn, const std::string& label,
                    TextMenuItemProvider& row);

}  // namespace ostrel
