/// @file  bars.h: the parts of the two bars that every full-screen window shows, and the list counter. The bars as a
/// whole are OstrelWindow::drawNavBar and drawStatBar (window.h).
/// Everything is drawn into the current render target, in the skin's fonts, colours and images, and read from the
/// device anew on every call: nothing is kept but the icons (getIconFromCache).
/// Threads: UI thread only.  Units: pixels of the 1280 x 720 screen.  Errors: none; an image or font that is missing is
/// left out. The widths of status items stay the same then; a button of the lower bar is narrower by what is missing.
///
/// Status items stand in a row that ends at the right of the navigation bar; each is told how far left of that end it
/// starts and returns how wide it is, 0 when it shows nothing. An item's slot is 33 x 32 pixels at x = 1223 - offset,
/// y + 19; its icon is centred in it. Before that the slot is painted over with the same part of gBackground, so that
/// an icon drawn earlier goes. The bool is not looked at; the navigation bar passes true.
#pragma once
#include <SDL.h>

#include "ostrel/export.h"

class OstrelSurface;

/// Draws how full the battery is, by a picture and in percent, and a bolt in front while it is charged or on USB.
/// Only the slot at x = 1256 - offset is painted over. The picture shows full from 80 percent up, then three quarters
/// from 50, half from 25, a quarter from 5, and empty.
/// @return 84 below 10 percent, 99 below 100, else 114; 18 more with the bolt.
OSTREL_API int draw_battery_icon(bool enabled, int offset, int y);

/// Draws a loudspeaker, struck through while SHM_VOL is below 1; the mute switch does not count. @return 42.
OSTREL_API int draw_sound_icon(bool enabled, int offset, int y);

/// Draws a headphone while /dev/dsp1 can be read. @return 42, or 0, and then nothing is painted over.
OSTREL_API int draw_hotplug(bool enabled, int offset, int y);

/// Draws the hotspot, or the bars of the Wi-Fi signal while connected (see getWifiMode and rx_wifi_status).
/// @return 42, or 0 when neither is so, and then nothing is painted over.
OSTREL_API int draw_wifi_icon(bool enabled, int offset, int y);

/// Draws a headphone while both /tmp/btdev_addr and /tmp/bluetooth_ready exist. @return 42, or 0; the slot is painted
/// over in either case.
OSTREL_API int draw_bluetooth_icon(bool enabled, int offset, int y);

/// Draws the icon @p name of the theme at its own size in the middle of a slot. @param slot its top left corner; width
/// and height are not looked at, they are always 33 x 32.
OSTREL_API void drawIconInSlot(const SDL_Rect& slot, const char* name);

/// Draws a button with what it does to the right of it: @p icon at @p x and, 10 pixels on, @p label in gStatFont and
/// gStatColorTxt, each in the middle of the 70 pixels below @p y and 2 lower. @param icon stays the caller's.
/// @return the width of the icon, the 10 pixels and the label, which is 0 wide without the font; 0, with nothing drawn,
///         when @p icon is null.
OSTREL_API int draw_stat_icon_item_left(OstrelSurface* icon, int x, int y, const char* label);

/// Top of the list counter; 672 until a program moves it.
extern OSTREL_API int gListNumOfStatBarOffsetY;

/// Draws "index/total" in gStatFont and gStatColorTxt, ending at x = 1256, with its top at gListNumOfStatBarOffsetY.
/// Without the font nothing is drawn. @param index the cursor's row counted from 1, @p total the number of rows.
OSTREL_API void drawListNumAtStatBar(int index, int total);
