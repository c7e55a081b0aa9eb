#include "icons.h"

#include "ostrel/host.h"
#include "ostrel/image.h"

namespace launcher {
namespace {

Icons sIcons;

std::unique_ptr<OstrelSurface> load(const char* name) {
    return std::unique_ptr<OstrelSurface>(LoadOstrelSurface(gThemePath, "./", name));
}

}  // namespace

const Icons& icons() { return sIcons; }

void loadIcons() {
    sIcons.game = load("skin/ic-game.png");
    sIcons.file = load("skin/ic-file.png");
    sIcons.buttonX = load("skin/tips-X.png");
    sIcons.buttonY = load("skin/tips-Y.png");
    sIcons.buttonSelect = load("skin/tips-SELECT.png");
}

void freeIcons() { sIcons = Icons{}; }

}  // namespace launcher
