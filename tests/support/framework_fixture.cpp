#include "support/framework_fixture.h"

#include <gmock/gmock.h>

#include "support/files.h"

HGE* FrameworkTest::hge_ = nullptr;
const char* FrameworkTest::may_leave_ = "nothing";

namespace {

constexpr char kLog[] = "framework_test.log", kPicture[] = "framework_test.png";

}  // namespace

void FrameworkTest::SetUpTestSuite() {
    hge_ = hgeCreate(HGE_VERSION);
    ASSERT_NE(hge_, nullptr);
    hge_->System_SetState(HGE_WINDOWED, true);
    hge_->System_SetState(HGE_USESOUND, false);
    hge_->System_SetState(HGE_LOGFILE, kLog);
    ASSERT_TRUE(hge_->System_Initiate()) << hge_->System_GetErrorMessage();
}

void FrameworkTest::TearDownTestSuite() {
    hge_->System_Shutdown();
    std::string log = LogText();
    EXPECT_THAT(log.substr(log.rfind("shutdown: ")),
                testing::ContainsRegex(std::string("^shutdown: still alive: ") + may_leave_));
    may_leave_ = "nothing";
    hge_->Release();
}

void FrameworkTest::Scene(const std::function<void()>& draw, DWORD ground) {
    ASSERT_TRUE(hge_->Gfx_BeginScene(0));
    hge_->Gfx_Clear(ground);
    draw();
    hge_->Gfx_EndScene();
}

hge::Image FrameworkTest::Picture(const std::function<void()>& draw, DWORD ground) {
    Scene(draw, ground);
    hge_->System_Snapshot(kPicture);
    return test::ReadPicture(hge_->Resource_MakePath(kPicture));
}

std::string FrameworkTest::LogText() {
    return test::FileText(hge_->Resource_MakePath(kLog));
}
