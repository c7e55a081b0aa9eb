/// @file  about_window.h: the state of the console: battery, charger, Wi-Fi and memory.
#pragma once
#include <cstdint>
#include <vector>

#include "about_values.h"
#include "windows/launcher_window.h"

namespace launcher {

class AboutWindow : public LauncherWindow {
public:
    AboutWindow();
    /// Asks the device again, once a second.
    void onFrame() override;
    void draw() override;
    void languageChanged() override;

protected:
    int handleInput() override;

private:
    void read();

    std::vector<AboutLine> mLines;
    uint64_t mReadAtMs = 0;
};

}  // namespace launcher
