#include "ostrel/dialog.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"

namespace {

constexpr int kTransient = -1;

}  // namespace

FloatWindow::FloatWindow(int titleId) : OstrelWindow(titleId, kTransient), mSnapshot(nullptr) {}

FloatWindow::~FloatWindow() { deleteSurface(mSnapshot); }

int FloatWindow::eventHandling() { return -1; }

void FloatWindow::draw() {
    for (OstrelSurface* layer : {mSnapshot, gBackgroundFloat}) {
        if (layer != nullptr) layer->render(nullptr, nullptr, /*keepSize=*/true, nullptr);
    }
}

void FloatWindow::quit() {}

void FloatWindow::init() {
    if (mSnapshot == nullptr) mSnapshot = ScreenSnapshot();
}

void FloatWindow::saveState(cJSON* obj) { OstrelWindow::saveState(obj); }

int FloatWindow::restoreState() { return OstrelWindow::restoreState(); }

void FloatWindow::onFrame() { OstrelWindow::onFrame(); }
