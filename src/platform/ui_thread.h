// Drawing belongs to one thread, the one that started the screen. Debug builds check it: assert(isUiThread()).
#pragma once

namespace ostrel {

void bindUiThread();     // from now on the calling thread draws
void releaseUiThread();  // nobody does

// True on the thread that draws, and everywhere while nobody does.
bool isUiThread();

}  // namespace ostrel
