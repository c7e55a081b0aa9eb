#include "texts.h"

#include "ostrel/language.h"

namespace launcher {
namespace {

// In the order of the numbers, from kTextGames on.
constexpr const char* kTexts[] = {
    "Games",
    "QUIT",
    "DETAILS",
    "SEARCH",
    "NUMBERS",
    "ICONS",
    "Folder",
    "File",
    "This folder is empty",
    "There is no text to show",
    "%d found",
    "Details",
};
static_assert(std::size(kTexts) == kTextAbout - kTextGames + 1, "one text for each number");

}  // namespace

void addTexts() { gDefaultStringList.insert(gDefaultStringList.end(), std::begin(kTexts), std::end(kTexts)); }

std::string textWithNumber(Text index, int number) {
    std::string text = getLangStr(index);
    const std::size_t place = text.find("%d");
    if (place != std::string::npos) text.replace(place, 2, std::to_string(number));
    return text;
}

}  // namespace launcher
