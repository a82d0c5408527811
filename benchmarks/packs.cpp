#include "packs.h"

#include <fstream>
#include <memory>
#include <utility>

#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

std::string FullPath(const std::string& name) {
    return Stage::Framework()->Resource_MakePath(name.c_str());
}

struct Attached {
    explicit Attached(int entries) : path(FullPath(PackName(entries))) {
        Require(Stage::Framework()->Resource_AttachPack(path.c_str()), "the pack cannot be attached");
    }
    ~Attached() { Stage::Framework()->Resource_RemovePack(path.c_str()); }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;
    std::string path;
};

// Against reading the file, whose larger part the directory is.
Scene Opening(int entries) {
    Scene scene;
    scene.items = entries;
    scene.family = "pack opening";
    scene.size = entries;
    scene.growth_limit = 1.1;
    scene.ours = [entries](Meter& meter) {
        std::unique_ptr<Attached> pack;
        meter([&] { pack = std::make_unique<Attached>(entries); });
    };
    scene.bare = [path = FullPath(PackName(entries))](Meter& meter) {
        std::string bytes;
        meter([&] {
            std::ifstream file(path, std::ios::binary | std::ios::ate);
            bytes.resize(static_cast<size_t>(file.tellg()));
            file.seekg(0);
            file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        });
    };
    return scene;
}

// Against opening and reading a file of the size of an entry.
Scene Hits(int entries, int wanted) {
    auto pack = std::make_shared<Attached>(entries);
    const auto names = EntryNames(entries, wanted);
    const std::string file = FullPath("benchmark_entry");
    std::ofstream(file, std::ios::binary) << std::string(100, 'x');
    Scene scene;
    scene.items = static_cast<double>(names.size());
    scene.family = "pack hits";
    scene.size = entries;
    scene.growth_limit = 0.2;
    scene.ours = [pack, names](Meter& meter) {
        meter([&] {
            for (const std::string& name : names) {
                void* bytes = Stage::Framework()->Resource_Load(name.c_str());
                Require(bytes, name.c_str());
                Stage::Framework()->Resource_Free(bytes);
            }
        });
    };
    scene.bare = [names, file](Meter& meter) {
        meter([&] {
            for (size_t i = 0; i < names.size(); ++i) {
                char bytes[100];
                std::ifstream(file, std::ios::binary).read(bytes, sizeof bytes);
            }
        });
    };
    return scene;
}

// Against asking the disk, which a name that no pack has comes to.
Scene Misses(int entries, int wanted) {
    auto pack = std::make_shared<Attached>(entries);
    std::vector<std::string> names;
    for (int i = 0; i < wanted; ++i)
        names.push_back("missing_" + std::to_string(i) + ".tga");
    Scene scene;
    scene.items = wanted;
    scene.family = "pack misses";
    scene.size = entries;
    scene.growth_limit = 0.2;
    scene.ours = [pack, names](Meter& meter) {
        meter([&] {
            for (const std::string& name : names)
                Require(!Stage::Framework()->Resource_Load(name.c_str()), name.c_str());
        });
    };
    scene.bare = [names](Meter& meter) {
        meter([&] {
            for (const std::string& name : names)
                GetFileAttributesA(name.c_str());
        });
    };
    return scene;
}

}  // namespace

std::string PackName(int entries) {
    return "benchmarks\\pack_" + std::to_string(entries) + ".zip";
}

std::vector<std::string> EntryNames(int entries, int wanted) {
    std::vector<std::string> names;
    for (int i = 0; i < entries; ++i)
        names.push_back("images/image_" + std::to_string(i) + ".tga");
    Dice dice;
    for (size_t i = names.size(); i > 1; --i)
        std::swap(names[i - 1], names[static_cast<size_t>(dice.Roll(static_cast<int>(i)))]);
    if (static_cast<size_t>(wanted) < names.size()) names.resize(static_cast<size_t>(wanted));
    return names;
}

void AddPackScenes(Suite& suite) {
    const int wanted = suite.Size(1000);
    for (int entries : kPackSizes)
        suite.Add("pack/" + std::to_string(entries) + "/open", [=] { return Opening(entries); });
    for (int entries : kPackSizes)
        suite.Add("pack/" + std::to_string(entries) + "/hit", [=] { return Hits(entries, wanted); });
    for (int entries : kPackSizes)
        suite.Add("pack/" + std::to_string(entries) + "/miss", [=] { return Misses(entries, wanted); });
}

}  // namespace bench
