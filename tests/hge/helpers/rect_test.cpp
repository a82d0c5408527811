#include <gtest/gtest.h>

#include "hgerect.h"

TEST(RectTest, HoldsItsLeftAndTopEdgeOnly) {
    const hgeRect rect(10, 20, 30, 40);
    EXPECT_TRUE(rect.TestPoint(10, 20) && rect.TestPoint(29.5f, 39.5f));
    EXPECT_FALSE(rect.TestPoint(30, 25) || rect.TestPoint(15, 40) || hgeRect().TestPoint(0, 0));
}

TEST(RectTest, ACleanOneBecomesTheFirstPointItEncloses) {
    hgeRect rect;
    rect.Encapsulate(5, 6);
    rect.Encapsulate(-1, 9);
    rect.Encapsulate(2, 7);
    EXPECT_TRUE(!rect.IsClean() && rect.x1 == -1 && rect.y1 == 6 && rect.x2 == 5 && rect.y2 == 9);
    rect.Clear();
    rect.Encapsulate(100, 100);
    EXPECT_EQ(rect.x1, 100);
}

TEST(RectTest, OverlapsButDoesNotTouch) {
    const hgeRect rect(0, 0, 10, 10), inside(4, 4, 6, 6), beside(10, 0, 20, 10), below(0, 10, 10, 20);
    EXPECT_TRUE(rect.Intersect(&inside) && inside.Intersect(&rect));
    EXPECT_FALSE(rect.Intersect(&beside) || rect.Intersect(&below) || rect.Intersect(nullptr));
    EXPECT_FALSE(beside.Intersect(&rect) || below.Intersect(&rect));
    hgeRect square;
    square.SetRadius(12, 5, 3);
    EXPECT_TRUE(rect.Intersect(&square));
}
