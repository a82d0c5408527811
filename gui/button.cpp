#include <cstring>
#include <new>

#include "drill2d/font.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "gui/control.h"
#include "text/code_page.h"

static_assert(sizeof(void*) != 4 || sizeof(CGameButton) == 48 + 4 + 352,
              "fields follow the two interface parts");

namespace {

constexpr DWORD kDebounceMs = 500;
constexpr DWORD kCaptionColor = 0xFFFCCF58;
constexpr float kCharacterEstimate = 12.0f;

// Shared by all buttons: a double click must not press the button that appears under the mouse.
DWORD g_lastPressTick = 0;

bool IsTooSoon(DWORD now) {
    return g_lastPressTick != 0 && static_cast<int>(now - g_lastPressTick) <= static_cast<int>(kDebounceMs);
}

int FrameIndex(unsigned int state) {
    if (state & STATE_DISABLED) return 4;
    if (state & STATE_PRESSED) return 1;
    return state & STATE_HOVER ? 2 : 0;
}

}  // namespace

CGameButton::CGameButton()
    : m_storedVisible(false),
      m_pMouseAni(nullptr),
      m_pSprite(nullptr),
      m_reserved(0),
      m_frameCount(5),
      m_pressedInside(false),
      m_state(0),
      m_lbuttonDown(false),
      m_dragCtl(false),
      m_pNotify(nullptr),
      m_pFont(nullptr),
      m_caption(),
      m_textX(0),
      m_textY(0),
      m_textAlign(ALIGN_LEFT | ALIGN_TOP),
      m_manual(false),
      m_mouseThrough(true),
      m_tag(0) {
    control::InitObject(this);
    live::Born(live::kControl);
}

CGameButton::~CGameButton() {
    live::Gone(live::kControl);
    delete m_pSprite;
    delete m_pMouseAni;
}

bool CGameButton::LoadImageInfo(const char* file) {
    return TakeStrip(control::LoadSprite(file));
}

bool CGameButton::LoadImageInfo(CGameResourceManager* mgr, const char* name) {
    control::HgeReference hge;
    return hge && mgr && TakeStrip(control::LoadSprite(mgr, name));
}

bool CGameButton::TakeStrip(CGameSprite* sprite) {
    if (!sprite) return false;
    delete m_pSprite;
    m_pSprite = sprite;
    float width = control::FrameWidth(sprite, m_frameCount);
    float height = static_cast<float>(sprite->GetHeight(true));
    // Sizes only: the button is placed after loading.
    rect.x2 = width;
    rect.y2 = height;
    m_srcRect.Set(0, 0, width, height);
    m_clientRect.Set(0, 0, width, height);
    return true;
}

bool CGameButton::LoadImageInfo(const char* file, int x, int y, int w, int h) {
    CGameSprite* sprite = control::LoadSprite(file);
    if (!sprite) return false;
    delete m_pSprite;
    m_pSprite = sprite;
    float left = static_cast<float>(x), top = static_cast<float>(y);
    float width = static_cast<float>(w), height = static_cast<float>(h);
    sprite->SetTextureRect(left, top, width, height, true);
    // The size stands where right and bottom do: a frame is w - x wide.
    m_srcRect.Set(left, top, width, height);
    rect.x2 = width;
    rect.y2 = height;
    m_clientRect.Set(0, 0, width, height);
    return true;
}

void CGameButton::UpdateState() {
    if (!bVisible || !m_pSprite) return;
    float width = m_srcRect.x2 - m_srcRect.x1, height = m_srcRect.y2 - m_srcRect.y1;
    float left = m_srcRect.x1 + static_cast<float>(FrameIndex(m_state)) * width;
    m_pSprite->SetTextureRect(left, m_srcRect.y1, width, height, true);
}

void CGameButton::Update(float dt) {
    control::Fetch(m_caption);
    control::Fetch(&m_textX);
    control::FetchSprite(m_pSprite);
    UpdateState();
    if (m_pMouseAni && m_state & STATE_HOVER) m_pMouseAni->Update(dt);
}

void CGameButton::Render() {
    if (!bVisible || m_manual) return;
    DrawFrameAndCaption();
    if (m_pMouseAni && m_state & STATE_HOVER) m_pMouseAni->Render(rect.x1, rect.y1);
}

void CGameButton::DrawManual() {
    if (bVisible && m_manual) DrawFrameAndCaption();
}

void CGameButton::DrawFrameAndCaption() {
    if (m_pSprite) m_pSprite->RenderStretch(rect.x1, rect.y1, rect.x2, rect.y2);
    // A caption is no format: it may hold percent signs.
    if (m_pFont) m_pFont->Print(m_textX, m_textY, "%s", m_caption);
}

void CGameButton::MouseOver(bool over) {
    if (!m_mouseThrough) return;
    if (m_pMouseAni) over ? m_pMouseAni->Play() : m_pMouseAni->Stop();
    control::Notify(m_pNotify, this, NOTIFY_MOUSEOVER, over);
    if (over)
        m_state |= STATE_HOVER;
    else
        m_state &= ~(STATE_HOVER | STATE_PRESSED);
}

bool CGameButton::MouseMove(float x, float y) {
    if (m_lbuttonDown && m_dragCtl) control::Notify(m_pNotify, this, NOTIFY_DRAGMOVE, false, x, y);
    return false;
}

bool CGameButton::MouseLButton(bool down) {
    if (!m_mouseThrough) return false;
    m_lbuttonDown = down;
    return down ? Press() : ReleaseButton();
}

bool CGameButton::Press() {
    m_state |= STATE_PRESSED;
    m_pressedInside = true;
    DWORD now = GetTickCount();
    if (IsTooSoon(now)) return false;
    g_lastPressTick = now;
    control::Notify(m_pNotify, this, NOTIFY_LBUTTONDOWN, true);
    return false;
}

// A release inside is a click even when its press was too soon or began elsewhere.
bool CGameButton::ReleaseButton() {
    m_state &= ~STATE_PRESSED;
    control::Point mouse = control::MousePosition();
    if (!rect.TestPoint(mouse.x, mouse.y)) {
        m_state &= ~STATE_HOVER;
        return true;
    }
    m_pressedInside = false;
    if (!m_pNotify) return false;
    control::Notify(m_pNotify, this, NOTIFY_CLICK, true);
    return true;
}

bool CGameButton::KeyClick(int /*key*/, int /*chr*/) {
    return true;
}

void CGameButton::SetFrame(int n) {
    m_frameCount = static_cast<unsigned short>(n);
}
unsigned int CGameButton::getTag() {
    return m_tag;
}
void CGameButton::setTag(unsigned int tag) {
    m_tag = tag;
}

void CGameButton::SetFont(GfxFont* font) {
    m_pFont = font;
}

void CGameButton::SetFont(const char* face, int size, int bold, int italic, int antialias) {
    GfxFont* font = control::MakeFont(face, size, bold, italic, antialias);
    if (!font) return;
    m_pFont = font;
    m_pFont->SetColor(kCaptionColor, -1);
    m_pFont->SetKerningWidth(1.0f);
}

void CGameButton::SetFontColor(unsigned long color_value) {
    if (m_pFont) m_pFont->SetColor(color_value, -1);
}

void CGameButton::SetCaption(const char* text) {
    if (!text) return;
    code_page::CopyText(CP_THREAD_ACP, m_caption, sizeof m_caption, text);
    if (m_textAlign & ALIGN_LEFT) m_textX = rect.x1;
    if (m_textAlign & ALIGN_RIGHT) m_textX = rect.x2;
    if (m_textAlign & ALIGN_TOP) m_textY = rect.y1;
    if (m_textAlign & ALIGN_BOTTOM) m_textY = rect.y2;
    if (!(m_textAlign & ALIGN_CENTER)) return;
    int half_width = static_cast<int>(std::strlen(m_caption)) * static_cast<int>(kCharacterEstimate) / 2;
    m_textX = rect.x1 + (rect.x2 - rect.x1) * 0.5f - static_cast<float>(half_width);
    m_textY = rect.y1 + (rect.y2 - rect.y1) * 0.5f - kCharacterEstimate;
}

void CGameButton::SetTextAlign(int flags) {
    m_textAlign = flags;
}

void CGameButton::SetTextPos(int x, int y) {
    m_textX = static_cast<float>(x);
    m_textY = static_cast<float>(y);
}

void CGameButton::SetDragCtl(bool drag) {
    m_dragCtl = drag;
}
void CGameButton::SetMouseThrough(bool reacts) {
    m_mouseThrough = reacts;
}
void CGameButton::SetManual(bool manual) {
    m_manual = manual;
}

bool CGameButton::loadMouseAni(const char* file, int frames, int fps, int w, int h) {
    delete m_pMouseAni;
    m_pMouseAni = new (std::nothrow) CGameAnimation;
    // The animation reads the name only.
    if (!m_pMouseAni) ReportTrouble("loadMouseAni");
    if (m_pMouseAni) m_pMouseAni->LoadAniImage(const_cast<char*>(file), frames, fps, w, h);
    return m_pMouseAni != nullptr;
}

void CGameButton::SendParentMessage(HWND hwnd, unsigned int msg) {
    struct {
        unsigned int type;
        CGameButton* button;
    } record = {GetControlType(), this};
    SendMessageA(hwnd, msg, reinterpret_cast<WPARAM>(&record), reinterpret_cast<LPARAM>(&id));
}

void CGameButton::MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) {
    if (layout) control::MoveInLayout(this, &m_clientRect, x, y, w, h, layout, bSize);
}

void CGameButton::MoveWindow(float x, float y, float w, float h, bool bSize) {
    if (bSize)
        control::ResizeOnScreen(this, &m_clientRect, x, y, w, h);
    else
        control::MoveTo(&rect, x, y);
    m_textX = x;
    m_textY = y;
}

void CGameButton::ShowWindow(bool show) {
    control::Show(this, m_state, show);
    m_storedVisible = show;
    UpdateState();
}

void CGameButton::EnableWindow(bool enable) {
    control::Enable(this, &m_state, enable);
    UpdateState();
}

bool CGameButton::IsValid() {
    return true;
}

bool CGameButton::Release() {
    if (IsValid()) delete this;
    return true;
}

void* CGameButton::QueryInterface(const GUID& iid, unsigned long version) {
    return control::QueryInterface(this, iid, version);
}

unsigned int CGameButton::GetControlType() {
    return CONTROL_BUTTON;
}
void CGameButton::SetState(int state) {
    m_state = static_cast<unsigned int>(state);
}
int CGameButton::GetState() {
    return static_cast<int>(m_state);
}
bool CGameButton::IsWindowEnabled() {
    return !(m_state & STATE_DISABLED);
}
bool CGameButton::IsWindowVisible() {
    return bVisible;
}
hgeRect CGameButton::GetRect() {
    return rect;
}
hgeRect CGameButton::GetClientRect() {
    return m_clientRect;
}
bool CGameButton::SetINotifyMsg(IUnknownEx* sink) {
    return control::ConnectSink(sink, &m_pNotify);
}
