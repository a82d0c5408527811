#include "flash/control_site.h"

#include "flash/flash_fixture.h"
#include "flash/shockwave_flash.h"

namespace {

class ControlSiteTest : public FlashTest {
 protected:
    ControlSiteTest() {
        site_->AddRef();
        EXPECT_TRUE(player_.StartAnimation("m.swf", 30, 20, nullptr));
    }
    ~ControlSiteTest() override {
        site_->SetOwner(nullptr);
        EXPECT_EQ(site_->Release(), 0u);
    }

    ControlSite* site_ = new ControlSite;
    FlashPlayer player_;
};

TEST_F(ControlSiteTest, OffersTwoTablesWithOneCount) {
    void *primary = nullptr, *client = nullptr, *other = &client;
    for (const IID& riid : {IID_IUnknown, IID_IOleWindow, IID_IOleInPlaceSite, IID_IOleInPlaceSiteEx,
                            IID_IOleInPlaceSiteWindowless, DIID_IShockwaveFlashEvents}) {
        EXPECT_EQ(site_->QueryInterface(riid, &primary), S_OK);
        EXPECT_EQ(primary, site_);
        EXPECT_EQ(site_->Release(), 1u);
    }
    EXPECT_EQ(site_->QueryInterface(IID_IOleClientSite, &client), S_OK);
    EXPECT_NE(client, primary);
    EXPECT_EQ(static_cast<IOleClientSite*>(client)->Release(), 1u);
    EXPECT_EQ(site_->QueryInterface(IID_IDispatch, &other), E_NOTIMPL);
    EXPECT_EQ(other, nullptr);
}

TEST_F(ControlSiteTest, GivesTheOwnersRectangleAndMakesItDraw) {
    site_->SetOwner(&player_);
    IOleInPlaceFrame* frame = reinterpret_cast<IOleInPlaceFrame*>(7);
    IOleInPlaceUIWindow* document = reinterpret_cast<IOleInPlaceUIWindow*>(7);
    RECT position = {}, clip = {}, expected = {0, 0, 30, 20};
    OLEINPLACEFRAMEINFO info = {99, TRUE, GetDesktopWindow(), reinterpret_cast<HACCEL>(7), 3};
    EXPECT_EQ(site_->GetWindowContext(&frame, &document, &position, &clip, &info), S_OK);
    EXPECT_TRUE(!frame && !document && EqualRect(&position, &expected) && EqualRect(&clip, &expected));
    EXPECT_TRUE(info.cb == 99 && !info.fMDIApp && !info.hwndFrame && !info.haccel && info.cAccelEntries == 0);
    EXPECT_TRUE(player_.Render() == 1 && player_.Render() == 0);
    site_->InvalidateRgn(nullptr, FALSE);
    EXPECT_EQ(player_.Render(), 1);
}

}  // namespace
