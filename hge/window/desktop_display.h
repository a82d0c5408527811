#pragma once

#include "window/screen_mode.h"

namespace hge {

// The primary monitor's mode.
class DesktopDisplay : public Display {
 public:
    ScreenSize Current() override;
    bool Switch(ScreenSize size, int bits_per_pixel) override;
    void Restore() override;
};

// The primary monitor in desktop coordinates.
ScreenArea PrimaryMonitor();

// Makes client pixels the monitor's pixels, whatever scaling the desktop has.
void UseRealPixels();

}  // namespace hge
