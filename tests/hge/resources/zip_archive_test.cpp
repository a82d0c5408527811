#include "resources/zip_archive.h"

#include <gmock/gmock.h>

#include <iostream>
#include <random>
#include <set>

#include "hge/resources/largest_request.h"
#include "hge/resources/test_data.h"
#include "resources/ansi_code_page.h"

namespace {

using hge::Block;
using hge::CodePage;
using hge::FoldName;
using hge::MemorySource;
using hge::PlainBytes;
using hge::ZipArchive;
using test_data::Pack;
using test_data::ReadBytes;
using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::EndsWith;

using Bytes = std::vector<uint8_t>;

std::unique_ptr<ZipArchive> Open(const Bytes& bytes, std::string* reason,
                                 const CodePage& page = PlainBytes()) {
    return ZipArchive::Open(std::make_unique<MemorySource>(bytes), page, reason);
}

// The text of a file, or "error: " with the reason.
std::string Read(ZipArchive& archive, const std::string& name, const std::string& password = "",
                 const CodePage& page = PlainBytes()) {
    const hge::ZipEntry* entry = archive.Find(FoldName(name, page));
    if (!entry) return "error: not found";
    std::string reason;
    Block block = archive.Read(*entry, password, &reason);
    if (!block.bytes) return "error: " + reason;
    EXPECT_EQ(block.bytes[block.size], 0);
    return std::string(reinterpret_cast<char*>(block.bytes.get()), block.size);
}

std::string ReadFrom(const Bytes& bytes, const std::string& name, const std::string& password = "") {
    std::string reason;
    auto archive = Open(bytes, &reason);
    return archive ? Read(*archive, name, password) : "error: " + reason;
}

std::string ReasonOf(const Bytes& bytes) {
    std::string reason;
    EXPECT_EQ(Open(bytes, &reason), nullptr);
    return reason;
}

std::string LongText() {
    return test::FileText(test_data::Folder() + "files\\Images\\Long.TXT");
}

size_t FindLast(const Bytes& bytes, const std::string& text) {
    return std::string(bytes.begin(), bytes.end()).rfind(text);
}

Bytes With(Bytes bytes, size_t at, std::initializer_list<uint8_t> values) {
    std::copy(values.begin(), values.end(), bytes.begin() + static_cast<ptrdiff_t>(at));
    return bytes;
}

TEST(ZipArchiveTest, ReadsWhatTheOrdinaryToolMakes) {
    for (const char* pack : {"plain.zip", "stored.zip", "described.zip", "prefixed.zip", "commented.zip"}) {
        SCOPED_TRACE(pack);
        std::string reason;
        auto archive = Open(ReadBytes(Pack(pack)), &reason);
        ASSERT_TRUE(archive) << reason;
        EXPECT_EQ(archive->entry_count(), 5u);
        EXPECT_EQ(Read(*archive, "Images/Long.TXT"), LongText());
        EXPECT_EQ(Read(*archive, "images\\LONG.txt"), LongText());
        EXPECT_EQ(Read(*archive, ".\\Images/Deep\\data.BIN"), "deep");
        EXPECT_EQ(Read(*archive, "with space/a b.txt"), "spaced");
        EXPECT_EQ(Read(*archive, "empty.txt"), "");
        EXPECT_EQ(Read(*archive, "Images/"), "error: not found");
        EXPECT_EQ(Read(*archive, ""), "error: not found");
    }
}

TEST(ZipArchiveTest, RefusesWhatIsNoArchiveOrOfAnUnknownKind) {
    EXPECT_EQ(ReasonOf({}), "the file is empty");
    EXPECT_EQ(ReasonOf(ReadBytes(Pack("foreign.zip"))), "not a ZIP archive, or cut off");
    EXPECT_EQ(ReasonOf(Bytes(21, 'P')), "not a ZIP archive, or cut off");
    EXPECT_EQ(ReasonOf(ReadBytes(Pack("sixtyfour.zip"))), "64-bit ZIP archives are not supported");
    EXPECT_EQ(ReadFrom(ReadBytes(Pack("bzip2.zip")), "Images/Long.TXT"),
              "error: its compression method is not supported");
}

TEST(ZipArchiveTest, EveryTruncationIsRefused) {
    Bytes whole = ReadBytes(Pack("plain.zip"));
    for (size_t size = 0; size < whole.size(); ++size) {
        std::string reason;
        Bytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        ASSERT_EQ(Open(cut, &reason), nullptr) << size;
        ASSERT_THAT(reason, AnyOf("the file is empty", "not a ZIP archive, or cut off")) << size;
    }
}

// Whatever a damaged byte does: a file comes back right, or not at all with a reason.
TEST(ZipArchiveTest, DamagedBytesNeverGiveWrongContents) {
    for (const char* pack : {"plain.zip", "secret.zip"}) {
        Bytes whole = ReadBytes(Pack(pack));
        int refused = 0;
        for (size_t i = 0; i < whole.size(); ++i) {
            Bytes damaged = With(whole, i, {static_cast<uint8_t>(whole[i] ^ (i % 2 ? 0xFF : 0x01))});
            std::string text = ReadFrom(damaged, "shared.txt", "geheim");
            ASSERT_THAT(text, AnyOf("from the pack", testing::StartsWith("error: ")))
                << pack << " byte " << i;
            ASSERT_NE(text, "error: ") << pack << " byte " << i;
            refused += text != "from the pack";
        }
        EXPECT_GT(refused, 20) << pack;
    }
}

void Damage(Bytes& bytes, std::mt19937& random) {
    size_t end = bytes.size(), from = random() % end, length = std::min<size_t>(random() % 64, end - from);
    auto at = bytes.begin() + static_cast<ptrdiff_t>(from), until = at + static_cast<ptrdiff_t>(length);
    switch (random() % 4) {
        case 0:
            bytes.erase(at, until);
            break;
        case 1:
            std::copy_backward(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(length), until);
            break;
        default:
            // Mostly in the directory, where the harm is.
            for (int count = 4; count > 0; --count)
                bytes[random() % 2 ? from : end - 1 - random() % std::min<size_t>(end, 400)] =
                    static_cast<uint8_t>(random());
    }
}

TEST(ZipArchiveTest, RandomDamageGivesRightFilesOrReasons) {
    unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << std::endl;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string long_text = LongText();
    const Bytes packs[] = {ReadBytes(Pack("plain.zip")), ReadBytes(Pack("secret.zip"))};
    for (int round = 0; round < 1000; ++round) {
        Bytes bytes = packs[round % 2];
        size_t most = bytes.size() * 1032;
        Damage(bytes, random);
        largest_request = 0;
        std::string reason;
        auto archive = Open(bytes, &reason);
        ASSERT_TRUE(archive || !reason.empty()) << round;
        for (size_t i = 0; archive && i < archive->entries().size(); ++i) {
            Block block = archive->Read(archive->entries()[i], "geheim", &reason);
            ASSERT_TRUE(block.bytes ? block.size <= most : !reason.empty()) << round;
            std::string text(reinterpret_cast<char*>(block.bytes.get()), block.size);
            if (!block.bytes) continue;
            ASSERT_THAT(text, AnyOf("from the pack", "deep", "spaced", "", long_text)) << round;
        }
        // The archive, its end, its directory or a chunk: none is larger than the file but for what is
        // unpacked.
        ASSERT_LE(largest_request, 1u << 17) << round;
    }
}

TEST(ZipArchiveTest, SizesAndPlacesThatCannotBeAreNamed) {
    Bytes zip = ReadBytes(Pack("one.zip"));
    size_t entry = FindLast(zip, "PK\1\2");
    EXPECT_EQ(ReadFrom(zip, "a"), "content");
    const std::pair<Bytes, const char*> cases[] = {
        {With(zip, entry + 16, {0}), "CRC mismatch"},
        {With(zip, entry + 24, {6}), "its sizes do not agree"},
        {With(zip, entry + 42, {0xFF, 0xFF, 0xFF, 0xFF}), "its place in the pack is damaged"},
        {With(zip, entry + 20, {255, 0, 0, 0, 255}), "its place in the pack is damaged"},
        // Deflated, with 200 MB promised by 7 bytes, or more than the limit by as many as fit.
        {With(zip, entry + 10, {8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 12}),
         "its sizes do not agree"},
        {With(zip, entry + 20, {0, 0, 0, 64, 0, 0, 0, 64}), "it is larger than 256 MB"}};
    for (const auto& [bytes, reason] : cases)
        EXPECT_EQ(ReadFrom(bytes, "a"), std::string("error: ") + reason);
    EXPECT_EQ(ReasonOf(With(zip, FindLast(zip, "PK\5\6") + 8, {2, 0, 2, 0})), "its directory is damaged");
}

TEST(ZipArchiveTest, PasswordsOpenWhatTheyShould) {
    Bytes secret = ReadBytes(Pack("secret.zip"));
    EXPECT_EQ(ReadFrom(secret, "Images/Long.TXT", "geheim"), LongText());
    EXPECT_EQ(ReadFrom(secret, "shared.txt", "geheim"), "from the pack");
    EXPECT_EQ(ReadFrom(secret, "empty.txt", "geheim"), "");
    EXPECT_EQ(ReadFrom(secret, "shared.txt"),
              "error: it is encrypted and the pack was attached without a password");
    // One wrong password of 256 passes the check byte: among so many there are both kinds.
    std::set<std::string> answers;
    for (int i = 0; i < 4000; ++i)
        answers.insert(ReadFrom(secret, "Images/Long.TXT", "wrong" + std::to_string(i)));
    EXPECT_THAT(answers, Contains("error: wrong password"));
    EXPECT_THAT(answers, Contains(EndsWith(", or a wrong password")));
    EXPECT_THAT(answers, Each(AnyOf("error: wrong password", EndsWith(", or a wrong password"))));
    EXPECT_EQ(ReadFrom(ReadBytes(Pack("plain.zip")), "shared.txt", "geheim"), "from the pack");
}

TEST(ZipArchiveTest, NamesAreFoundInTheHostsCodePage) {
    SKIP_UNLESS_CODE_PAGE_936();
    const std::string gbk = "\xcd\xbc\xc6\xac/\xc8\xab\xba\xda\xcd\xb8\xc3\xf7.png";
    const std::string utf8 = "\xe5\x9b\xbe\xe7\x89\x87/\xe5\x85\xa8\xe9\xbb\x91\xe9\x80\x8f\xe6\x98\x8e.png";
    CodePage page = hge::AnsiCodePage();
    for (const char* pack : {"utf8.zip", "flagged.zip", "extra.zip"}) {
        SCOPED_TRACE(pack);
        std::string reason;
        auto archive = Open(ReadBytes(Pack(pack)), &reason, page);
        ASSERT_TRUE(archive) << reason;
        EXPECT_EQ(Read(*archive, gbk, "", page), "black");
        EXPECT_EQ(Read(*archive, "\xcd\xbc\xc6\xac\\\xc8\xab\xba\xda\xcd\xb8\xc3\xf7.PNG", "", page),
                  "black");
        if (pack == std::string("utf8.zip")) {
            EXPECT_EQ(Read(*archive, utf8, "", page), "black");
        }
    }
}

TEST(ZipArchiveTest, SecondBytesOfCharactersAreNoLettersOrSlashes) {
    SKIP_UNLESS_CODE_PAGE_936();
    CodePage page = hge::AnsiCodePage();
    std::string reason;
    auto archive = Open(ReadBytes(Pack("gbk.zip")), &reason, page);
    ASSERT_TRUE(archive) << reason;
    EXPECT_EQ(Read(*archive, "\xcd\xbc\xc6\xac.TXT", "", page), "gbk");
    EXPECT_EQ(Read(*archive, "\x81\x5c.txt", "", page), "backslash");
    EXPECT_EQ(Read(*archive, "\x81/.txt", "", page), "error: not found");
    EXPECT_EQ(Read(*archive, "\x81\x41.txt", "", page), "letter");
    EXPECT_EQ(Read(*archive, "\x81\x61.txt", "", page), "error: not found");
}

}  // namespace
