// Stands between the launcher and the PNG decoder: records each picture that is decoded, and holds decoding up while a
// test looks at what waits.
#pragma once
#include <vector>

namespace launchertest {

// While it lives, decoding waits until the test lets it go on.
class HeldDecoder {
public:
    HeldDecoder();
    ~HeldDecoder();  // lets go
    HeldDecoder(const HeldDecoder&) = delete;
    HeldDecoder& operator=(const HeldDecoder&) = delete;
    void awaitDecoding() const;  // returns once a picture is held up
    void letGo() const;
};

// The widths of the pictures that were decoded since the last call, in order.
std::vector<int> takeDecodedWidths();

}  // namespace launchertest
