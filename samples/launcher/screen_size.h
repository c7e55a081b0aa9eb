/// @file  screen_size.h: the screen that the launcher is laid out for, in pixels, as its user holds it.
#pragma once

namespace launcher {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 720;

}  // namespace launcher
