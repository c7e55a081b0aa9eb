/// @file  details_window.h: what is known of one file or folder, and its first lines.
#pragma once
#include <string>
#include <vector>

#include "launcher_window.h"

namespace launcher {

class DetailsWindow : public LauncherWindow {
public:
    DetailsWindow(std::string path, std::string name, bool isFolder);

    /// Reads the file, when the window comes on top.
    void init() override;
    int eventHandling() override;
    void draw() override;
    const char* getTitle() override;

private:
    int drawName();
    void drawLines(int top);

    std::string mPath;
    std::string mName;
    bool mIsFolder;
    std::string mKind;
    std::vector<std::string> mNameLines;
    std::vector<std::string> mLines;
};

}  // namespace launcher
