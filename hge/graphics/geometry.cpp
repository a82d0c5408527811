#include "graphics/geometry.h"

#include <algorithm>
#include <cmath>

namespace hge {

Box Union(const Box& a, const Box& b) {
    if (a.empty()) return b;
    if (b.empty()) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

namespace {

int ClampedEnd(int start, int length, int limit) {
    return static_cast<int>(std::clamp<int64_t>(int64_t{start} + length, 0, limit));
}

}  // namespace

Box ClipBox(int x, int y, int w, int h, int surface_width, int surface_height) {
    if (w == 0 || h == 0) return {0, 0, surface_width, surface_height};
    Box box{std::clamp(x, 0, surface_width), std::clamp(y, 0, surface_height),
            ClampedEnd(x, w, surface_width), ClampedEnd(y, h, surface_height)};
    return box.empty() ? Box{} : box;
}

Transform::Transform(float x, float y, float dx, float dy, float rot, float hscale, float vscale) {
    if (vscale == 0) return;
    identity_ = false;
    float c = std::cos(rot);
    float s = std::sin(rot);
    xx_ = c * hscale;
    xy_ = -s * vscale;
    yx_ = s * hscale;
    yy_ = c * vscale;
    from_x_ = x;
    from_y_ = y;
    to_x_ = x + dx;
    to_y_ = y + dy;
}

void Transform::Apply(float* x, float* y) const {
    float rx = *x - from_x_;
    float ry = *y - from_y_;
    *x = rx * xx_ + ry * xy_ + to_x_;
    *y = rx * yx_ + ry * yy_ + to_y_;
}

void MakeLine(const Vertex& from, const Vertex& to, Vertex* quad) {
    float dx = to.x - from.x;
    float dy = to.y - from.y;
    float length = std::max(std::fabs(dx), std::fabs(dy));
    // Half a pixel along the line and half a pixel across it; a line to itself is one pixel.
    float along_x = length > 0 ? dx / length / 2 : 0.5f;
    float along_y = length > 0 ? dy / length / 2 : 0;
    bool wide = std::fabs(dx) >= std::fabs(dy);
    float across_x = wide ? 0 : 0.5f;
    float across_y = wide ? 0.5f : 0;
    auto corner = [&](const Vertex& end, float along, float across) {
        Vertex moved = end;
        moved.x += 0.5f + along_x * along + across_x * across;
        moved.y += 0.5f + along_y * along + across_y * across;
        return moved;
    };
    quad[0] = corner(from, -1, -1);
    quad[1] = corner(to, 1, -1);
    quad[2] = corner(to, 1, 1);
    quad[3] = corner(from, -1, 1);
}

}  // namespace hge
