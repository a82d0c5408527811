#include "core/log.h"

#include <gmock/gmock.h>

#include "hge/resources/test_data.h"

namespace {

using hge::Log;
using test::FileText;
using test_data::Out;
using testing::MatchesRegex;

TEST(LogTest, WorksWithoutAFileThatCanBeWritten) {
    Log log;
    EXPECT_FALSE(log.Open("") || log.Open(Out("no such folder\\a.log")));
    log.Write(nullptr);
    log.Fail("no %s", "luck");
    EXPECT_EQ(log.LastError(), "no luck");
    EXPECT_STREQ(log.LastErrorText(), "no luck");
}

TEST(LogTest, EveryLineIsOnDiskAtOnceWithItsTime) {
    Log log;
    ASSERT_TRUE(log.Open(Out("a.log")));
    log.Write("%d of %s", 3, "four");
    EXPECT_THAT(FileText(Out("a.log")), MatchesRegex("..:..:..\\.... 3 of four\r\n"));
    log.Fail("%s", std::string(5000, 'x').c_str());
    EXPECT_EQ(log.LastError().size(), 5000u);
    EXPECT_THAT(FileText(Out("a.log")), testing::EndsWith("xxx\r\n"));
}

TEST(LogTest, OpeningStartsTheFileAndTheSeenKeysAfresh) {
    Log log;
    for (int run = 0; run < 2; ++run) {
        ASSERT_TRUE(log.Open(Out("b.log")));
        for (int i = 0; i < 3; ++i)
            log.WriteOnce("key", "number %d", i);
        log.WriteOnce("other", "other");
        EXPECT_THAT(FileText(Out("b.log")), MatchesRegex("............ number 0\r\n............ other\r\n"));
    }
}

TEST(LogTest, RemembersABoundedNumberOfKeys) {
    Log log;
    ASSERT_TRUE(log.Open(Out("c.log")));
    for (int i = 0; i < 5000; ++i)
        log.WriteOnce(std::to_string(i), "line");
    std::string text = FileText(Out("c.log"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4096);
}

}  // namespace
