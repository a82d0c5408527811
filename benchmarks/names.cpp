#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "drill2d/resources.h"
#include "packs.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr int kSmallest = 1000, kMiddle = 10000, kLargest = 20000;

// A manager that has loaded so many images of the largest pack under their names.
struct Images {
    explicit Images(int count)
        : manager(Stage::Framework()),
          names(EntryNames(kPackSizes[2], count)),
          packet(PackName(kPackSizes[2])) {
        manager.AttachPacket(packet.c_str());
        manager.SetCurPacket(packet);
    }
    ~Images() { manager.FreePacketResource(packet); }
    Images(const Images&) = delete;
    Images& operator=(const Images&) = delete;

    CGameResourceManager manager;
    std::vector<std::string> names;
    std::string packet;
};

// The same names in a table of the standard library, behind a function that takes them by value, too.
Work HashLookups(const std::vector<std::string>& names) {
    auto table = std::make_shared<std::unordered_map<std::string, int>>();
    for (const std::string& name : names)
        table->emplace(name, 1);
    std::function<int(std::string)> find = [table](std::string name) { return table->find(name)->second; };
    return [names, find](Meter& meter) {
        int found = 0;
        meter([&] {
            for (const std::string& name : names)
                found += find(name);
        });
        Require(found == static_cast<int>(names.size()), "the table is wrong");
    };
}

Scene FindData(int count) {
    auto images = std::make_shared<Images>(count);
    for (const std::string& name : images->names)
        Require(images->manager.GetImage(name.c_str()), name.c_str());
    Scene scene;
    scene.items = count;
    scene.ours = [images](Meter& meter) {
        meter([&] {
            for (const std::string& name : images->names)
                Require(images->manager.findData(images->packet, name), name.c_str());
        });
    };
    scene.bare = HashLookups(images->names);
    return scene;
}

// The cache of textures is never freed.
Scene CreateTex(int count) {
    auto images = std::make_shared<Images>(count);
    for (const std::string& name : images->names)
        Require(images->manager.create_tex(name), name.c_str());
    Scene scene;
    scene.items = count;
    scene.ours = [images](Meter& meter) {
        meter([&] {
            for (const std::string& name : images->names)
                images->manager.create_tex(name);
        });
    };
    scene.bare = HashLookups(images->names);
    return scene;
}

}  // namespace

void AddNameScenes(Suite& suite) {
    for (int size : {kSmallest, kMiddle, kLargest}) {
        const int count = suite.Size(size);
        for (bool data : {true, false})
            suite.Add("names/" + std::to_string(count) + (data ? "/findData" : "/create_tex"), [=] {
                Scene scene = data ? FindData(count) : CreateTex(count);
                scene.family = data ? "names in findData" : "names in create_tex";
                scene.size = count;
                scene.growth_limit = 1.1;
                return scene;
            });
    }
}

}  // namespace bench
