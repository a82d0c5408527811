#include <memory>

#include "bare.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

using hge::DeviceVertex;

// The same quads for the framework and for the bare device.
struct Quads {
    Quads(int count, int textures, bool mixed) : images(textures) {
        Dice dice;
        for (int i = 0; i < count; ++i) {
            const float x = static_cast<float>(dice.Roll(kScreenWidth - 8));
            const float y = static_cast<float>(dice.Roll(kScreenHeight - 8));
            const int blend = mixed ? dice.Roll(4) : BLEND_DEFAULT;
            Append(x, y, dice.Roll(textures), blend);
        }
    }

    void Append(float x, float y, int image, int blend) {
        hgeQuad quad = {};
        quad.tex = images[static_cast<size_t>(image)];
        // The bare page is read over as many texels, as far apart: that is what drawing them costs.
        auto texels = [](int count) { return static_cast<float>(count) / 1024; };
        const float u = texels(image % 32 * 32), v = texels(image / 32 % 40 * 25);
        const float width = texels(Stage::Framework()->Texture_GetWidth(quad.tex));
        const float height = texels(Stage::Framework()->Texture_GetHeight(quad.tex));
        const float right[] = {0, 1, 1, 0}, down[] = {0, 0, 1, 1};
        for (int i = 0; i < 4; ++i) {
            quad.v[i] = {x + 8 * right[i], y + 8 * down[i], 0.5f, 0x80FFFFFF, right[i], down[i]};
            vertices.push_back({quad.v[i].x, quad.v[i].y, 0.5f, 0x80FFFFFF, u + width * right[i],
                                v + height * down[i], blend & BLEND_ALPHABLEND ? 255u << 8 : 0});
        }
        quad.blend = blend;
        quads.push_back(quad);
    }

    Textures images;
    std::vector<hgeQuad> quads;
    std::vector<DeviceVertex> vertices;
};

std::shared_ptr<Quads> MakeQuads(int count, int textures, bool mixed) {
    return std::make_shared<Quads>(count, textures, mixed);
}

Scene Submitting(std::shared_ptr<Quads> quads, bool clipped, double limit) {
    Scene scene;
    scene.items = static_cast<double>(quads->quads.size());
    scene.limit = limit;
    scene.heap_free = true;
    scene.ours = Stage::Submission([quads, clipped] {
        if (clipped) Stage::Framework()->Gfx_SetClipping(0, 0, 1, 1);
        Stage::Replay(quads->quads);
    });
    scene.bare = [quads, clipped](Meter& meter) {
        // The stillness that ours begins with, which leaves nothing in the caches.
        Stage::Settle();
        Bare::Get().Wait();
        meter([&] { Bare::Get().Submit(quads->vertices, clipped); });
        Bare::Get().Wait();
    };
    return scene;
}

Scene WholeFrame(std::shared_ptr<Quads> quads) {
    constexpr int kFrames = 8;
    Scene scene;
    // 0.95 of the bare frame rate.
    scene.limit = 1 / 0.95;
    scene.ours = [quads](Meter& meter) {
        meter.Add(Stage::FrameTime(kFrames, [quads] {
            Stage::Framework()->Gfx_Clear(0xFF000000);
            Stage::Replay(quads->quads);
        }));
    };
    scene.bare = [quads](Meter& meter) {
        meter.Add(Bare::Get().FrameTime(kFrames, true, [quads] {
            Bare::Get().Clear();
            Bare::Get().Submit(quads->vertices, false);
        }));
    };
    return scene;
}

}  // namespace

void AddQuadScenes(Suite& suite) {
    for (int count : {suite.Size(10000), suite.Size(100000)})
        for (int textures : {1, 16, 2000})
            for (bool clipped : {true, false}) {
                const std::string name = "quads/" + std::to_string(count) + "/" + std::to_string(textures) +
                                         (textures == 1 ? " texture" : " textures") +
                                         (clipped ? "/clipped" : "/visible");
                suite.Add(name, [=] { return Submitting(MakeQuads(count, textures, false), clipped, 1.5); });
            }
    const int count = suite.Size(10000);
    suite.Add("quads/mixed blends", [count] { return Submitting(MakeQuads(count, 2000, true), true, 1.5); });
    suite.Add("quads/whole frame", [count] { return WholeFrame(MakeQuads(count, 2000, false)); });
    for (int size : {4000, 16000, 64000})
        suite.Add("quads/growth/" + std::to_string(suite.Size(size)), [size = suite.Size(size)] {
            Scene scene = Submitting(MakeQuads(size, 2000, false), true, 0);
            scene.family = "quads";
            scene.size = size;
            scene.growth_limit = 1.1;
            return scene;
        });
}

}  // namespace bench
