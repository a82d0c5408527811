#pragma once

namespace hge {

struct ScreenSize {
    int width = 0;
    int height = 0;
    bool operator==(const ScreenSize&) const = default;
};

struct ScreenArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const ScreenArea&) const = default;
};

// What ScreenMode asks of the operating system.
class Display {
 public:
    virtual ~Display() = default;
    virtual ScreenSize Current() = 0;
    // For the time that this process runs; false when there is no such mode.
    virtual bool Switch(ScreenSize size, int bits_per_pixel) = 0;
    virtual void Restore() = 0;
};

// Owns the switch of the desktop's mode: given back by Leave or at the end of the object.
class ScreenMode {
 public:
    explicit ScreenMode(Display& display) : display_(display) {}
    ~ScreenMode() { Leave(); }
    ScreenMode(const ScreenMode&) = delete;
    ScreenMode& operator=(const ScreenMode&) = delete;

    // True when the desktop has that size now; false leaves it as it was.
    bool Enter(ScreenSize size, int bits_per_pixel);
    void Leave();
    bool switched() const { return switched_; }

 private:
    bool Switch(ScreenSize size, int bits_per_pixel);

    Display& display_;
    bool switched_ = false;
};

// Where a game screen goes on a monitor: in its middle, or at its corner when the monitor is smaller.
ScreenArea CentreOn(const ScreenArea& monitor, ScreenSize size);

}  // namespace hge
