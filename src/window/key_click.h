// The sound of a key press.
#pragma once

namespace ostrel {

// Plays gKeyChunk, when the host has set one, in place of whatever still sounds. Threads: any.
void playKeyClick();

}  // namespace ostrel
