#include "window/screen_mode.h"

#include <algorithm>

namespace hge {

bool ScreenMode::Enter(ScreenSize size, int bits_per_pixel) {
    if (display_.Current() == size) return true;
    Leave();
    // Current systems have no 16-bit modes left.
    return Switch(size, bits_per_pixel) || (bits_per_pixel != 32 && Switch(size, 32));
}

bool ScreenMode::Switch(ScreenSize size, int bits_per_pixel) {
    if (!display_.Switch(size, bits_per_pixel)) return false;
    switched_ = true;
    // Some drivers report success and choose a near mode.
    if (display_.Current() == size) return true;
    Leave();
    return false;
}

void ScreenMode::Leave() {
    if (!switched_) return;
    switched_ = false;
    display_.Restore();
}

ScreenArea CentreOn(const ScreenArea& monitor, ScreenSize size) {
    return {monitor.x + std::max(0, (monitor.width - size.width) / 2),
            monitor.y + std::max(0, (monitor.height - size.height) / 2), size.width, size.height};
}

}  // namespace hge
