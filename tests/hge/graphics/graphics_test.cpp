#include "hge/graphics/renderer_fixture.h"

namespace test {

using testing::HasSubstr;

using GraphicsTest = RendererTest;

// Black but for one rectangle.
hge::Image Rectangle(int left, int top, int width, int height,
                     const std::function<uint32_t(int, int)>& pixel) {
    return MakePicture(320, 240, [=](int x, int y) {
        bool inside = x >= left && x < left + width && y >= top && y < top + height;
        return inside ? pixel(x - left, y - top) : 0xFF000000;
    });
}

TEST_F(GraphicsTest, DrawsTexturesOfAnySizePixelByPixel) {
    for (auto [width, height] : {std::pair{1, 1}, {100, 60}, {256, 200}, {300, 220}}) {
        HTEXTURE texture = MakePattern(width, height);
        hge::Image screen =
            Screen([&] { DrawQuad(7, 5, static_cast<float>(width), static_cast<float>(height), texture); });
        EXPECT_TRUE(
            SamePicture("texture" + std::to_string(width), screen, Rectangle(7, 5, width, height, Pattern)));
    }
}

}  // namespace test
