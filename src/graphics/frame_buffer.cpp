// Helpers of the time before SDL, which old programs still link to.
#include <linux/fb.h>
#include <sys/ioctl.h>

#include "ostrel/log.h"
#include "ostrel/screen.h"

namespace {

constexpr int kNoDevice = -1;  // the library opens no frame-buffer device

fb_var_screeninfo sFbVarInfo;

}  // namespace

void lcd_fb_flip() {
    sFbVarInfo.yoffset = 0;
    if (ioctl(kNoDevice, FBIOPAN_DISPLAY, &sFbVarInfo) < 0) tprintf("FBIOPAN_DISPLAY fail\n");
}

void lcd_fb_wait_for_vsync() {}
