#include "flash/control_site.h"

#include "flash/flash_fixture.h"
#include "flash/shockwave_flash.h"

namespace {

class ControlSiteTest : public FlashTest {
 protected:
    ControlSiteTest() {
        site_->AddRef();
        EXPECT_TRUE(player_.StartAnimation("m.swf", 30, 20, nullptr));
        player_.Render();
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

TEST_F(ControlSiteTest, AnswersAsASiteWithoutAWindow) {
    ControlSite* s = site_;
    HWND window = reinterpret_cast<HWND>(7);
    BOOL no_redraw = 7;
    RECT rect = {1, 2, 3, 4};
    IMoniker* moniker = reinterpret_cast<IMoniker*>(7);
    IOleContainer* container = reinterpret_cast<IOleContainer*>(7);
    for (HRESULT hr :
         {s->ContextSensitiveHelp(TRUE), s->CanInPlaceActivate(), s->OnInPlaceActivate(), s->OnUIActivate(),
          s->Scroll(SIZE{1, 1}), s->OnUIDeactivate(TRUE), s->OnInPlaceDeactivate(), s->DiscardUndoState(),
          s->DeactivateAndUndo(), s->OnPosRectChange(&rect), s->OnInPlaceActivateEx(&no_redraw, 0),
          s->OnInPlaceDeactivateEx(TRUE), s->CanWindowlessActivate(), s->GetFocus(), s->SetFocus(FALSE),
          s->ScrollRect(1, 1, nullptr, nullptr), s->AdjustRect(&rect), s->SaveObject()})
        EXPECT_EQ(hr, S_OK);
    for (HRESULT hr : {s->RequestUIActivate(), s->GetCapture(), s->SetCapture(TRUE), s->SetCapture(FALSE),
                       s->OnDefWindowMessage(WM_KEYDOWN, 0, 0, nullptr)})
        EXPECT_EQ(hr, S_FALSE);
    for (HRESULT hr : {s->GetDC(&rect, 0, nullptr), s->ReleaseDC(nullptr), s->AdjustRect(nullptr)})
        EXPECT_EQ(hr, E_INVALIDARG);
    for (HRESULT hr :
         {s->GetMoniker(0, 0, &moniker), s->ShowObject(), s->OnShowWindow(TRUE), s->RequestNewObjectLayout()})
        EXPECT_EQ(hr, E_NOTIMPL);
    EXPECT_EQ(s->GetWindow(&window), E_FAIL);
    EXPECT_EQ(s->GetContainer(&container), E_NOINTERFACE);
    EXPECT_TRUE(window && container && no_redraw == 7 && rect.left == 1) << "left as they were";
    EXPECT_EQ(moniker, nullptr);
}

TEST_F(ControlSiteTest, GivesTheOwnersRectangleAndNoFrame) {
    site_->SetOwner(&player_);
    IOleInPlaceFrame* frame = reinterpret_cast<IOleInPlaceFrame*>(7);
    IOleInPlaceUIWindow* document = reinterpret_cast<IOleInPlaceUIWindow*>(7);
    RECT position = {}, clip = {}, expected = {0, 0, 30, 20};
    OLEINPLACEFRAMEINFO info = {99, TRUE, GetDesktopWindow(), reinterpret_cast<HACCEL>(7), 3};
    EXPECT_EQ(site_->GetWindowContext(&frame, &document, &position, &clip, &info), S_OK);
    EXPECT_TRUE(!frame && !document && EqualRect(&position, &expected) && EqualRect(&clip, &expected));
    EXPECT_TRUE(info.cb == 99 && !info.fMDIApp && !info.hwndFrame && !info.haccel && info.cAccelEntries == 0);
}

TEST_F(ControlSiteTest, AnyInvalidationMakesTheOwnerDrawOnce) {
    RECT rect = {1, 1, 2, 2};
    site_->InvalidateRect(&rect, FALSE);
    EXPECT_EQ(player_.Render(), 0) << "not its owner";
    site_->SetOwner(&player_);
    for (int kind = 0; kind < 3; ++kind) {
        for (int times = 0; times < 2; ++times)
            EXPECT_EQ(kind == 2 ? site_->InvalidateRgn(nullptr, FALSE)
                                : site_->InvalidateRect(kind ? &rect : nullptr, FALSE),
                      S_OK);
        EXPECT_EQ(player_.Render(), 1);
        EXPECT_EQ(player_.Render(), 0);
    }
}

}  // namespace
