#include "ostrel/window.h"

#include "ostrel/language.h"
#include "ostrel/log.h"

OstrelWindow::OstrelWindow(int titleIndex, int typeCode) : title(titleIndex), type(typeCode) {}

OstrelWindow::~OstrelWindow() = default;

// The bodies below that are declared pure are what concrete windows share: they call them by name.
void OstrelWindow::saveState(cJSON* /*obj*/) {}
int OstrelWindow::restoreState() { return 0; }
void OstrelWindow::onFrame() {}

void OstrelWindow::preDraw() {}
void OstrelWindow::onPop() {}

const char* OstrelWindow::getTitle() { return getLangStr(title); }

void OstrelWindow::dump() { tprintf("title %s, type %d\n", title < 0 ? "" : getLangStr(title), type); }
