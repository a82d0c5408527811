#include "resources/resource_store.h"

#include <gmock/gmock.h>

#include <set>

#include "hge/resources/test_data.h"

namespace {

using hge::Log;
using hge::ResourceStore;
using test_data::Out;
using test_data::Pack;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ResourceStoreTest : public testing::Test {
 protected:
    std::string Load(const std::string& name) {
        uint32_t size = 99;
        auto* block = static_cast<char*>(store_.Load(name.c_str(), &size));
        if (!block) {
            EXPECT_EQ(size, 0u);
            return "error: " + log_.LastError();
        }
        EXPECT_EQ(block[size], '\0');
        std::string text(block, size);
        store_.Free(block);
        return text;
    }
    bool Attach(const std::string& name, const char* password = nullptr) {
        return store_.AttachPack(("packs/" + name).c_str(), password);
    }

    Log log_;
    ResourceStore store_{log_, test_data::Folder()};
};

TEST_F(ResourceStoreTest, LoadsFilesOfTheProgramsFolderOrByFullPath) {
    EXPECT_EQ(Load("files/Images/Deep\\data.bin"), "deep");
    EXPECT_EQ(Load("files/empty.txt"), "");
    EXPECT_EQ(Load(test_data::Folder() + "files\\shared.txt"), "from the newer pack");
    EXPECT_EQ(store_.live_blocks(), 0u);
    EXPECT_EQ(store_.MakePath(nullptr), test_data::Folder());
    EXPECT_EQ(store_.MakePath("a/b.png"), test_data::Folder() + "a\\b.png");
    EXPECT_STREQ(store_.MakePath("c:/a.png"), "c:\\a.png");
}

TEST_F(ResourceStoreTest, WhatCannotBeLoadedIsNamedWithTheReason) {
    EXPECT_EQ(store_.Load(nullptr, nullptr), nullptr);
    EXPECT_EQ(log_.LastError(), "cannot load a file: no name is given");
    EXPECT_EQ(Load("no.png"), "error: cannot load \"no.png\": no such file");
    EXPECT_THAT(Load("files"), StartsWith("error: cannot load \"files\": "));
    EXPECT_THAT(Load("con"), StartsWith("error: cannot load \"con\": "));
    EXPECT_THAT(Load(std::string(40000, 'a')), StartsWith("error: cannot load"));

    ASSERT_TRUE(Attach("plain.zip") && Attach("newer.zip"));
    EXPECT_EQ(Load("no.png"),
              "error: cannot load \"no.png\": not in the packs \"packs/newer.zip\", \"packs/plain.zip\", "
              "and no such file");
    ASSERT_TRUE(Attach("bzip2.zip"));
    EXPECT_EQ(
        Load("images/long.txt"),
        "error: cannot load \"images/long.txt\": pack \"packs/bzip2.zip\": its compression method is not "
        "supported");
}

TEST_F(ResourceStoreTest, FreeTakesOnlyLiveBlocks) {
    ASSERT_TRUE(log_.Open(Out("free.log")));
    void* block = store_.Load("files/shared.txt", nullptr);
    ASSERT_TRUE(block);
    EXPECT_EQ(store_.live_blocks(), 1u);
    int foreign = 0;
    store_.Free(&foreign);
    EXPECT_THAT(test::FileText(Out("free.log")), HasSubstr("is no loaded resource"));
    store_.Free(nullptr);
    store_.Free(block);
    store_.Free(block);
    EXPECT_EQ(store_.live_blocks(), 0u);
}

TEST_F(ResourceStoreTest, PacksThatCannotBeAttachedAreNamedWithTheReason) {
    EXPECT_FALSE(store_.AttachPack(nullptr, nullptr));
    EXPECT_EQ(log_.LastError(), "cannot attach a pack: no name is given");
    for (auto [pack, reason] : {std::pair{"missing.zip", "no such file"},
                                {"empty.zip", "the file is empty"},
                                {"foreign.zip", "not a ZIP archive, or cut off"}}) {
        EXPECT_FALSE(Attach(pack));
        EXPECT_EQ(log_.LastError(), std::string("cannot attach pack \"packs/") + pack + "\": " + reason);
    }
    EXPECT_EQ(store_.pack_count(), 0u);
}

TEST_F(ResourceStoreTest, NewestPackWinsThenOlderThenTheFile) {
    ASSERT_TRUE(store_.AttachPack(Pack("plain.zip").c_str(), nullptr));
    EXPECT_EQ(Load("SHARED.txt"), "from the pack");
    ASSERT_TRUE(Attach("newer.zip"));
    EXPECT_EQ(Load("shared.txt"), "from the newer pack");
    EXPECT_EQ(Load("images/deep/data.bin"), "deep");
    EXPECT_EQ(Load("files/shared.txt"), "from the newer pack");
    EXPECT_THAT(Load("\\shared.txt"), StartsWith("error: "));
    store_.RemovePack("Packs\\NEWER.zip");
    EXPECT_EQ(Load("shared.txt"), "from the pack");
    store_.RemovePack("packs/never.zip");
    store_.RemovePack(nullptr);
    store_.RemoveAllPacks();
    EXPECT_EQ(store_.pack_count(), 0u);
    EXPECT_EQ(Load("shared.txt"), "error: cannot load \"shared.txt\": no such file");
}

TEST_F(ResourceStoreTest, AttachingTwiceAddsNothing) {
    ASSERT_TRUE(Attach("secret.zip"));
    EXPECT_THAT(Load("shared.txt"), EndsWith("attached without a password"));
    EXPECT_TRUE(store_.AttachPack(Pack("SECRET.zip").c_str(), "geheim"));
    EXPECT_TRUE(Attach("secret.zip"));
    EXPECT_EQ(store_.pack_count(), 1u);
    EXPECT_EQ(Load("shared.txt"), "from the pack");
}

TEST_F(ResourceStoreTest, ChineseFileNamesWork) {
    SKIP_UNLESS_CODE_PAGE_936();
    SKIP_WITHOUT_CHINESE_FILES();
    ASSERT_TRUE(test_data::WriteFile(Out("\xcd\xbc\x81\x5c.txt"), "file"));
    EXPECT_EQ(Load("out/\xcd\xbc\x81\x5c.txt"), "file");
    ASSERT_TRUE(test_data::WriteFile(Out("\xb0\xfc.zip"), test::FileText(Pack("newer.zip"))));
    ASSERT_TRUE(store_.AttachPack("out/\xb0\xfc.zip", nullptr));
    EXPECT_EQ(Load("shared.txt"), "from the newer pack");
}

TEST_F(ResourceStoreTest, EnumeratesFilesAndFoldersApart) {
    std::set<std::string> files, folders;
    char* folder = store_.EnumFolders("files/*");
    for (char* file = store_.EnumFiles("files\\*.txt"); file; file = store_.EnumFiles(nullptr)) {
        files.insert(file);
        if (folder) folders.insert(folder);
        folder = store_.EnumFolders(nullptr);
    }
    EXPECT_EQ(files, (std::set<std::string>{"empty.txt", "shared.txt"}));
    EXPECT_EQ(folders, (std::set<std::string>{"Images", "with space"}));
    EXPECT_EQ(store_.EnumFiles(nullptr), nullptr);
    EXPECT_EQ(store_.EnumFiles("nowhere\\*"), nullptr);
}

}  // namespace
