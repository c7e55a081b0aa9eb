#include "theme.h"

#include <cjson/cJSON.h>

#include <algorithm>

#include "data_dirs.h"
#include "icons.h"
#include "json_file.h"
#include "ostrel/host.h"
#include "ostrel/skin.h"

namespace launcher {
namespace {

struct ColourRow {
    const char* name;
    SDL_Color* colour;
};
const ColourRow kColours[] = {
    {"gNavColorTxt", &gNavColorTxt},         {"gNavColorIcon", &gNavColorIcon},   {"gListColorTxt", &gListColorTxt},
    {"gListColorSubtxt", &gListColorSubtxt}, {"gListColorSeq", &gListColorSeq},   {"gStatColorTxt", &gStatColorTxt},
    {"gPopupColorTxt", &gPopupColorTxt},     {"gPopupColorBtn", &gPopupColorBtn}, {"gHighlightColor", &gHighlightColor},
    {"gPopupColorTitle", &gPopupColorTitle},
};

constexpr std::size_t kMostColourBytes = std::size_t{64} * 1024;  // of the colours

std::string sThemePath;

Uint8 channel(const cJSON* colour, int index) {
    const cJSON* value = cJSON_GetArrayItem(colour, index);
    return static_cast<Uint8>(std::clamp(cJSON_IsNumber(value) != 0 ? value->valueint : 0, 0, 255));
}

}  // namespace

const std::vector<ThemeInfo>& themes() {
    static const std::vector<ThemeInfo> kThemes{
        {kTextThemeDark, dataDirs().themes + "/dark/"},
        {kTextThemeLight, dataDirs().themes + "/light/"},
    };
    return kThemes;
}

void setTheme(const std::string& directory) {
    sThemePath = directory;
    gThemePath = sThemePath.c_str();
}

void loadSkin() {
    init_shared_skin();
    applyThemeColours(gThemePath);
    loadIcons();
}

void freeSkin() {
    freeIcons();
    uninit_shared_skin();
}

void applyThemeColours(const std::string& themeDir) {
    const JsonTree root = readJsonFile(themeDir + "colours.json", kMostColourBytes);
    for (const ColourRow& row : kColours) {
        const cJSON* colour = memberIn(root.get(), row.name);
        if (cJSON_GetArraySize(colour) != 4) continue;
        *row.colour = {channel(colour, 0), channel(colour, 1), channel(colour, 2), channel(colour, 3)};
    }
}

}  // namespace launcher
