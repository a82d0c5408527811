#include "hgerect.h"

void hgeRect::Encapsulate(float x, float y) {
    if (bClean) return Set(x, y, x, y);
    if (x < x1) x1 = x;
    if (x > x2) x2 = x;
    if (y < y1) y1 = y;
    if (y > y2) y2 = y;
}

bool hgeRect::Intersect(const hgeRect* rect) const {
    return rect && x1 < rect->x2 && rect->x1 < x2 && y1 < rect->y2 && rect->y1 < y2;
}
