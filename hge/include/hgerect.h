#pragma once

// A rectangle in pixels: x1 <= x < x2, y1 <= y < y2. A clean one holds nothing yet.
class hgeRect {
 public:
    float x1, y1, x2, y2;
    bool bClean;

    hgeRect(float left, float top, float right, float bottom)
        : x1(left), y1(top), x2(right), y2(bottom), bClean(false) {}
    hgeRect() : x1(0), y1(0), x2(0), y2(0), bClean(true) {}

    void Clear() { bClean = true; }
    bool IsClean() const { return bClean; }
    void Set(float left, float top, float right, float bottom) {
        x1 = left;
        y1 = top;
        x2 = right;
        y2 = bottom;
        bClean = false;
    }
    // The square of side 2r about (x, y).
    void SetRadius(float x, float y, float r) { Set(x - r, y - r, x + r, y + r); }
    // Grows to touch (x, y); a clean rectangle becomes that point.
    void Encapsulate(float x, float y);
    bool TestPoint(float x, float y) const { return x >= x1 && x < x2 && y >= y1 && y < y2; }
    // True when the two overlap; touching edges do not.
    bool Intersect(const hgeRect* rect) const;
};
