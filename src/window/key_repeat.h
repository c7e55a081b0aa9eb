// The repeat of a held D-pad direction: the event thread says what is held, a thread of its own posts the key presses.
#pragma once

namespace ostrel {

// From now on the direction key (KEY_UP ... KEY_RIGHT) counts as held; its repeats so far are kept.
void setRepeatTime(int key);

// From now on no key counts as held, and repeats start over. Takes no lock, so it never waits for the repeat thread.
void clearRepeatKeys();

// Ends SDL while the repeat thread is neither posting a key nor clicking: both would meet a queue or a sound device
// that is being freed.
void quitSdlBetweenRepeats();

// Keeps the repeat thread running. Scopes may nest, on the UI thread: there is one thread, which the outermost starts
// and, at its end, stops and waits for.
class KeyRepeatScope {
public:
    KeyRepeatScope();
    ~KeyRepeatScope();
    KeyRepeatScope(const KeyRepeatScope&) = delete;
    KeyRepeatScope& operator=(const KeyRepeatScope&) = delete;
};

}  // namespace ostrel
