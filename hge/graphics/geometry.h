#pragma once

#include "graphics/vertex.h"

namespace hge {

struct Box {
    int left = 0, top = 0, right = 0, bottom = 0;  // right and bottom lie outside

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool empty() const { return left >= right || top >= bottom; }
    bool operator==(const Box&) const = default;
};

// The smallest box around both; an empty one counts for nothing.
Box Union(const Box& a, const Box& b);

// The part of a clipping request that lies on a surface; all of it when w or h is 0.
// An area wholly outside gives an empty box: nothing is drawn then.
Box ClipBox(int x, int y, int w, int h, int surface_width, int surface_height);

// Scale and rotation about a point, then a move.
class Transform {
 public:
    Transform() = default;
    // rot in radians, clockwise on the screen; vscale 0 gives no transformation.
    Transform(float x, float y, float dx, float dy, float rot, float hscale, float vscale);

    bool identity() const { return identity_; }
    void Apply(float* x, float* y) const;

 private:
    bool identity_ = true;
    float xx_ = 1, xy_ = 0, yx_ = 0, yy_ = 1;
    float from_x_ = 0, from_y_ = 0, to_x_ = 0, to_y_ = 0;
};

// A quad over just the pixels of a one-pixel line, those of both ends included.
void MakeLine(const Vertex& from, const Vertex& to, Vertex* quad);

}  // namespace hge
