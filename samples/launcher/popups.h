/// @file  popups.h: questions and small menus over the window on top.
/// Threads: UI thread. Each is queued for the library, which brings it up in the next frame.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "texts.h"

namespace launcher {

/// Asks in the texts' words; @p confirmed runs when the player confirms, and the question is closed either way.
void askQuestion(Text title, Text question, std::function<void()> confirmed);
/// Tells something, at most two lines. Either button closes it.
void showMessage(const std::string& title, const std::string& message);

/// A row of a small menu. Its function runs, and the menu closes.
struct Choice {
    std::string label;
    std::function<void()> chosen;
};
/// A list of choices on a panel, the cursor on @p current. The back key closes it and runs nothing.
void showChoices(const std::vector<Choice>& choices, int current = 0);

}  // namespace launcher
