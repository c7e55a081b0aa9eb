// A window on a real X server, typed at as by a user: the keys arrive, and what stands on the screen is the picture
// that the headless driver makes of the same state.
#include <string>
#include <vector>

#include "ostrel/screen.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"
#include "typed_window.h"

namespace {

using ostreltest::Picture;
using ostreltest::Program;
using ostreltest::pushKey;
using Arguments = std::vector<std::string>;

// An X server without a window manager. The pointer stands in the middle, and keys go to the window below it.
class XServer {
public:
    XServer()
        : mServer("/bin/sh",
                  {"-c", "exec Xvfb -displayfd 1 -screen 0 1280x720x24 -nolisten tcp -noreset 2>/dev/null"}) {
        EXPECT_TRUE(mServer.readUntil("\n")) << "no X server";
        mDisplay = ":" + mServer.output().substr(0, mServer.output().find('\n'));
    }

    // The command line of a program that works on this server.
    Arguments commandLine(const Arguments& program) const {
        Arguments all{"DISPLAY=" + mDisplay, "SDL_VIDEODRIVER=x11", "SDL_RENDER_DRIVER=software", "SDL_RENDER_VSYNC=0"};
        all.insert(all.end(), program.begin(), program.end());
        return all;
    }
    void run(const Arguments& program) const {
        Program tool("/usr/bin/env", commandLine(program));
        EXPECT_EQ(tool.wait(), 0) << tool.output();
    }

private:
    Program mServer;
    std::string mDisplay;
};

class X11Test : public ostreltest::DeviceTest {
protected:
    X11Test() { device().linkFont(); }

    // It ends by itself when a key that the test waits for does not arrive.
    Arguments typedWindow() { return {"timeout", "--signal=KILL", "90", OSTREL_TYPED_WINDOW, device().root()}; }
    Picture screenshot(const XServer& server) {
        server.run({"import", "-window", "root", device().path("shot.png")});
        return Picture::load(device().path("shot.png"));
    }
};

// Two steps down and SELECT, without a display.
Picture headlessPicture() {
    Picture picture;
    ostreltest::runTypedWindow([&picture](const std::string& keys) {
        if (keys.empty()) {
            for (int i = 0; i < 2; ++i) pushKey(SDL_KEYDOWN, SDLK_DOWN);
            pushKey(SDL_KEYDOWN, SDLK_RCTRL);
            pushKey(SDL_KEYUP, SDLK_RCTRL);
        } else if (keys == " 6 6 10") {
            picture = Picture::ofWindow();
            pushKey(SDL_KEYUP, SDLK_ESCAPE);
        }
    });
    return picture;
}

TEST_F(X11Test, TheKeysOfAKeyboardMakeThePictureThatTheyMakeHeadless) {
    const XServer server;
    Program window("/usr/bin/env", server.commandLine(typedWindow()));
    ASSERT_TRUE(window.readUntil("shown:.\n")) << window.output();
    server.run({"xdotool", "key", "Down"});
    ASSERT_TRUE(window.readUntil("shown: 6.\n")) << window.output();
    server.run({"xdotool", "key", "Down"});
    ASSERT_TRUE(window.readUntil("shown: 6 6.\n")) << window.output();
    server.run({"xdotool", "key", "105"});  // the right Ctrl key, by its number on the keyboard
    ASSERT_TRUE(window.readUntil("shown: 6 6 10.\n")) << window.output();
    EXPECT_TRUE(picturesMatch(screenshot(server), headlessPicture(), ostreltest::kBlendingTolerance));
    server.run({"xdotool", "key", "Escape"});
    EXPECT_EQ(window.wait(), 0) << window.output();
}

TEST_F(X11Test, EveryKeyOfTheKeyboardIsReadAsItsButton) {
    const XServer server;
    Program window("/usr/bin/env", server.commandLine(typedWindow()));
    ASSERT_TRUE(window.readUntil("shown:.\n")) << window.output();
    server.run({"xdotool", "key", "space", "Control_L", "Shift_L", "Alt_L", "Up", "Down", "Left", "Right", "Return",
                "105", "Tab", "BackSpace"});
    ASSERT_TRUE(window.readUntil("shown: 1 2 3 4 5 6 7 8 9 10 12 13.\n")) << window.output();
    server.run({"xdotool", "key", "Escape"});
    EXPECT_EQ(window.wait(), 0) << window.output();
}

TEST_F(X11Test, WithoutAnXServerThereIsNoScreen) {
    Program window("/usr/bin/env",
                   {"DISPLAY=:no-such-server", "SDL_VIDEODRIVER=x11", OSTREL_TYPED_WINDOW, device().root()});
    EXPECT_EQ(window.wait(), 1) << window.output();
}

}  // namespace
