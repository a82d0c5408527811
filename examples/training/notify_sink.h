#pragma once

#include <drill2d/controls.h>

#include <functional>

namespace training {

// Calls a function when a control sends one kind of notification.
class NotifySink final : public INotifyMsg {
 public:
    NotifySink(NotifyCode code, std::function<void()> action) : code_(code), action_(std::move(action)) {}

    bool IsValid() override { return true; }
    // The one who made the sink owns it.
    bool Release() override { return false; }
    void* QueryInterface(const GUID& iid, unsigned long version) override;
    void OnNotify(ControlNotify* msg) override;

 private:
    unsigned int code_;
    std::function<void()> action_;
};

}  // namespace training
