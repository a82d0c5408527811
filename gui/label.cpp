#include <cstring>

#include "drill2d/font.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "gui/control.h"
#include "gui/ellipsis.h"
#include "text/code_page.h"

static_assert(sizeof(void*) != 4 || sizeof(CGameLable) == 48 + 4 + 4 + 2100,
              "fields follow the three interface parts");
static_assert(sizeof(CGameLableEx) == sizeof(CGameLable), "no fields of its own");

CGameLable::CGameLable()
    : m_pNotify(nullptr),
      m_pSprite(nullptr),
      m_state(0),
      m_pFont(nullptr),
      m_text(),
      m_showText(),
      m_format(FORMAT_LEFTTOP),
      m_textSize(),
      m_storedVisible(false) {
    control::InitObject(this);
    live::Born(live::kControl);
}

CGameLable::~CGameLable() {
    live::Gone(live::kControl);
    delete m_pSprite;
}

void CGameLable::SetFrame(int /*n*/) {}

bool CGameLable::LoadImageInfo(const char* file) {
    return TakeImage(control::LoadSprite(file));
}

bool CGameLable::LoadImageInfo(CGameResourceManager* mgr, const char* name) {
    return TakeImage(control::LoadSprite(mgr, name));
}

bool CGameLable::TakeImage(CGameSprite* sprite) {
    if (!sprite) return false;
    delete m_pSprite;
    m_pSprite = sprite;
    rect.x2 = static_cast<float>(sprite->GetWidth(true));
    rect.y2 = static_cast<float>(sprite->GetHeight(true));
    return true;
}

bool CGameLable::SetFont(const char* face, int size, bool bold, bool italic, bool antialias) {
    GfxFont* font = control::MakeFont(face, size, bold, italic, antialias);
    if (!font) return false;
    m_pFont = font;
    return true;
}

bool CGameLable::SetText(const char* text) {
    if (!text) return false;
    code_page::CopyText(CP_THREAD_ACP, m_text, sizeof m_text, text);
    std::memcpy(m_showText, m_text, sizeof m_showText);
    if (m_pFont) {
        wchar_t wide[sizeof m_text];
        code_page::ToWide(CP_THREAD_ACP, m_text, wide, sizeof m_text);
        m_textSize = m_pFont->GetTextSize(wide);
    }
    ajustTextMode();
    return true;
}

const char* CGameLable::getText() {
    return m_text;
}

void CGameLable::setformat(unsigned short flags) {
    m_format = flags;
}

void CGameLable::SetColor(DWORD text_color) {
    color = text_color;
    if (m_pFont) m_pFont->SetColor(text_color, -1);
}

void CGameLable::setbackgroundColor(unsigned long background_color) {
    if (m_pSprite) m_pSprite->SetColor(background_color, -1);
}

std::wstring CGameLable::AnsiToUnicode(const char* text) {
    return text ? code_page::ToWide(CP_ACP, text) : std::wstring();
}

// Starts from the text as shown but from the width of the whole: every call that finds it too wide cuts more.
void CGameLable::ajustTextMode() {
    if (m_format & FORMAT_ELLIPSIS && m_pFont) Safely("a label's text", [&] { Shorten(); });
}

void CGameLable::Shorten() {
    int width = static_cast<int>(rect.x2 - rect.x1);
    float font_size = m_pFont->GetFontSize();
    if (m_textSize.cx <= width || static_cast<float>(width) <= 2 * font_size) return;
    std::wstring text = AnsiToUnicode(m_showText);
    if (!CutWithDots(&text, m_textSize.cx, width, font_size)) return;
    std::string shown = code_page::FromWide(CP_THREAD_ACP, text.c_str());
    code_page::CopyText(CP_THREAD_ACP, m_showText, sizeof m_showText, shown.c_str());
}

bool CGameLable::HasArea() const {
    return rect.x2 - rect.x1 != 0 || rect.y2 - rect.y1 != 0;
}

void CGameLable::Update(float /*dt*/) {
    control::Fetch(&m_format);
    control::FetchSprite(m_pSprite);
}

void CGameLable::Render() {
    if (!HasArea()) return;
    if (m_pSprite) m_pSprite->Render(rect.x1, rect.y1);
    RenderText();
}

void CGameLableEx::Render() {
    if (!HasArea()) return;
    if (m_pSprite) m_pSprite->RenderStretch(rect.x1, rect.y1, rect.x2, rect.y2);
    RenderText();
}

void CGameLable::RenderText() {
    if (!m_pFont || !(m_format & (FORMAT_LEFTTOP | FORMAT_CENTER | FORMAT_ELLIPSIS))) return;
    bool left_top = m_format & FORMAT_LEFTTOP;
    bool centred = !left_top && m_format & FORMAT_CENTER;
    wchar_t wide[sizeof m_text];
    code_page::ToWide(CP_THREAD_ACP, left_top || centred ? m_text : m_showText, wide, sizeof m_text);
    float x = rect.x1, y = rect.y1;
    if (centred) {
        x += (rect.x2 - rect.x1 - static_cast<float>(m_textSize.cx)) * 0.5f;
        y += (rect.y2 - rect.y1 - static_cast<float>(m_textSize.cy)) * 0.5f;
    }
    m_pFont->Render(x, y, wide);
}

void CGameLable::MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) {
    if (layout) control::MoveInLayout(this, &m_clientRect, x, y, w, h, layout, bSize);
    ajustTextMode();
}

void CGameLable::MoveWindow(float x, float y, float w, float h, bool bSize) {
    if (bSize) {
        control::ResizeOnScreen(this, &m_clientRect, x, y, w, h);
    } else {
        // Only the corner goes along: the label's place in its layout grows or shrinks with the move.
        m_clientRect.x1 += x - rect.x1;
        m_clientRect.y1 += y - rect.y1;
        control::MoveTo(&rect, x, y);
    }
    ajustTextMode();
}

void CGameLable::ShowWindow(bool show) {
    control::Show(this, m_state, show);
    m_storedVisible = show;
}

void CGameLable::EnableWindow(bool enable) {
    control::Enable(this, &m_state, enable);
}

bool CGameLable::GetWindowStoreVisable() {
    return m_storedVisible;
}

void CGameLable::SetWindowStoreVisable(bool v) {
    control::Show(this, m_state, v);
}

bool CGameLable::IsValid() {
    return true;
}

bool CGameLable::Release() {
    if (IsValid()) delete this;
    return true;
}

void* CGameLable::QueryInterface(const GUID& iid, unsigned long version) {
    return control::QueryInterface(this, iid, version);
}

unsigned int CGameLable::GetControlType() {
    return CONTROL_LABEL;
}
void CGameLable::SetState(int state) {
    m_state = static_cast<unsigned int>(state);
}
int CGameLable::GetState() {
    return static_cast<int>(m_state);
}
bool CGameLable::IsWindowEnabled() {
    return !(m_state & STATE_DISABLED);
}
bool CGameLable::IsWindowVisible() {
    return bVisible;
}
hgeRect CGameLable::GetRect() {
    return rect;
}
hgeRect CGameLable::GetClientRect() {
    return m_clientRect;
}
bool CGameLable::SetINotifyMsg(IUnknownEx* sink) {
    return control::ConnectSink(sink, &m_pNotify);
}
