#include "icons.h"

#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/skin.h"

namespace launcher {
namespace {

struct IconRow {
    std::unique_ptr<OstrelSurface> Icons::*icon;
    const char* file;
};
constexpr IconRow kIcons[] = {
    {&Icons::game, "skin/ic-game.png"},
    {&Icons::file, "skin/ic-file.png"},
    {&Icons::search, "skin/ic-search.png"},
    {&Icons::recent, "skin/ic-recent.png"},
    {&Icons::settings, "skin/ic-settings.png"},
    {&Icons::about, "skin/ic-about.png"},
    {&Icons::power, "skin/ic-power.png"},
    {&Icons::next, "skin/ic-next.png"},
    {&Icons::buttonX, "skin/tips-X.png"},
    {&Icons::buttonY, "skin/tips-Y.png"},
    {&Icons::buttonSelect, "skin/tips-SELECT.png"},
    {&Icons::settingFocused, "skin/bg-set-f.png"},
    {&Icons::settingNormal, "skin/bg-set-n.png"},
    {&Icons::arrowLeftFocused, "skin/set-left-f.png"},
    {&Icons::arrowLeft, "skin/set-left-n.png"},
    {&Icons::arrowRightFocused, "skin/set-right-f.png"},
    {&Icons::arrowRight, "skin/set-right-n.png"},
    {&Icons::valueBox, "skin/set-value-box.png"},
    {&Icons::switchOn, "skin/switch-on.png"},
    {&Icons::switchOff, "skin/switch-off.png"},
    {&Icons::artPanel, "skin/art-panel.png"},
    {&Icons::keyFocused, "skin/key-f.png"},
    {&Icons::keyNormal, "skin/key-n.png"},
};

Icons sIcons;

bool bConfirms() { return GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0; }

}  // namespace

const Icons& icons() { return sIcons; }

void loadIcons() {
    for (const IconRow& row : kIcons) (sIcons.*row.icon).reset(LoadOstrelSurface(gThemePath, "./", row.file));
}

void freeIcons() { sIcons = Icons{}; }

OstrelSurface* confirmButton() { return bConfirms() ? gIconB : gIconA; }
OstrelSurface* backButton() { return bConfirms() ? gIconA : gIconB; }

}  // namespace launcher
