#include "notify_sink.h"

namespace training {

void* NotifySink::QueryInterface(const GUID& iid, unsigned long /*version*/) {
    if (IsEqualGUID(iid, IID_INotifyMsg)) return static_cast<INotifyMsg*>(this);
    return IsEqualGUID(iid, IID_IUnknownEx) ? static_cast<IUnknownEx*>(this) : nullptr;
}

void NotifySink::OnNotify(ControlNotify* msg) {
    if (msg->code == code_) action_();
}

}  // namespace training
