#pragma once

#include <string>

#include "drill2d/controls.h"

// A record as text: code, param and, for drags, the point.
inline std::string NotifyText(const ControlNotify& msg) {
    std::string text = "code " + std::to_string(msg.code);
    if (msg.code == NOTIFY_LBUTTONDOWN) text = "down";
    if (msg.code == NOTIFY_MOUSEOVER) text = "over";
    if (msg.code == NOTIFY_CHECKED) text = "checked";
    if (msg.code == NOTIFY_DRAGMOVE) text = "drag";
    if (msg.code == NOTIFY_CLICK) text = "click";
    text += " " + std::to_string(msg.param);
    if (msg.x || msg.y) text += " " + std::to_string(msg.x) + "," + std::to_string(msg.y);
    return msg.kind == 1 && msg.reserved == 0 ? text : text + " (bad record)";
}
