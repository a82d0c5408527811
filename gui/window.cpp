#include "drill2d/engine.h"
#include "engine/live_objects.h"
#include "gui/control.h"

static_assert(sizeof(void*) != 4 || sizeof(CGameWindow) == 48 + 4 + 68,
              "fields follow the two interface parts");

CGameWindow::CGameWindow()
    : m_pNotify(nullptr),
      m_pLayout(nullptr),
      m_state(0),
      m_pSprite(nullptr),
      m_dragEnabled(true),
      m_lastMouseX(0),
      m_lastMouseY(0) {
    control::InitObject(this);
    live::Born(live::kControl);
}

CGameWindow::~CGameWindow() {
    live::Gone(live::kControl);
    delete m_pSprite;
}

bool CGameWindow::LoadImageInfo(const char* file) {
    return TakeImage(control::LoadSprite(file));
}

bool CGameWindow::LoadImageInfo(CGameResourceManager* mgr, const char* name) {
    return TakeImage(control::LoadSprite(mgr, name));
}

bool CGameWindow::TakeImage(CGameSprite* sprite) {
    if (!sprite) return false;
    delete m_pSprite;
    m_pSprite = sprite;
    float width = static_cast<float>(sprite->GetWidth(true));
    float height = static_cast<float>(sprite->GetHeight(true));
    m_imageRect.Set(0, 0, width, height);
    MoveWindow(0, 0, width, height, true);
    return true;
}

bool CGameWindow::InitWindow(CGameResourceManager* mgr, const char* name, tagSIZE size) {
    LoadImageInfo(mgr, name);
    return GiveSize(size);
}

bool CGameWindow::InitWindow(const char* file, tagSIZE size) {
    LoadImageInfo(file);
    return GiveSize(size);
}

bool CGameWindow::GiveSize(tagSIZE size) {
    m_imageRect.Set(0, 0, static_cast<float>(size.cx), static_cast<float>(size.cy));
    if (m_pSprite && m_pSprite->GetSprite())
        MoveWindow(0, 0, static_cast<float>(m_pSprite->GetWidth(true)),
                   static_cast<float>(m_pSprite->GetHeight(true)), true);
    return true;
}

void CGameWindow::DragWindow(bool enable) {
    m_dragEnabled = enable;
}

void CGameWindow::SetLayOut(ILayOutInterFace* layout) {
    m_pLayout = layout;
}
ILayOutInterFace* CGameWindow::GetLayout() {
    return m_pLayout;
}

void CGameWindow::centerwindow() {
    HGE* hge = C2DGameEngine::Get2DGameEngineInstance()->GetHge();
    if (!hge) return;
    float width = rect.x2 - rect.x1, height = rect.y2 - rect.y1;
    float screen_width = static_cast<float>(hge->System_GetState(HGE_SCREENWIDTH));
    float screen_height = static_cast<float>(hge->System_GetState(HGE_SCREENHEIGHT));
    int x = static_cast<int>(rect.x1 + (screen_width - width) * 0.5f);
    int y = static_cast<int>(rect.y1 + (screen_height - height) * 0.5f);
    MoveWindow(static_cast<float>(x), static_cast<float>(y), 0, 0, false);
}

int CGameWindow::GetWidth() {
    return static_cast<int>(rect.x2 - rect.x1);
}
int CGameWindow::GetHeight() {
    return static_cast<int>(rect.y2 - rect.y1);
}

void CGameWindow::MoveWindow(float x, float y, float w, float h, ILayOutInterFace* layout, bool bSize) {
    if (layout) control::MoveInLayout(this, &m_clientRect, x, y, w, h, layout, bSize);
    MoveLayout();
}

void CGameWindow::MoveWindow(float x, float y, float w, float h, bool bSize) {
    if (bSize)
        control::ResizeOnScreen(this, &m_clientRect, x, y, w, h);
    else
        control::MoveTo(&rect, x, y);
    control::MoveTo(&m_imageRect, x, y);
    MoveLayout();
}

// The layout's client corner is its place in the window; the children follow the layout.
void CGameWindow::MoveLayout() {
    if (!m_pLayout) return;
    hgeRect client = m_pLayout->GetClientRect();
    m_pLayout->MoveWindow(client.x1, client.y1, 0, 0, false);
}

void CGameWindow::Update(float /*dt*/) {
    if (!(m_state & STATE_PRESSED)) return;
    control::Point mouse = control::MousePosition();
    float x = rect.x1 - (m_lastMouseX - mouse.x);
    float y = rect.y1 - (m_lastMouseY - mouse.y);
    if (m_dragEnabled && (x != rect.x1 || y != rect.y1)) MoveWindow(x, y, 0, 0, false);
    m_lastMouseX = mouse.x;
    m_lastMouseY = mouse.y;
}

bool CGameWindow::MouseLButton(bool down) {
    m_state = down ? m_state | STATE_PRESSED : m_state & ~STATE_PRESSED;
    control::Point mouse = control::MousePosition();
    m_lastMouseX = mouse.x;
    m_lastMouseY = mouse.y;
    return true;
}

// Hosts rely on every bit going, STATE_DISABLED too.
void CGameWindow::MouseOver(bool over) {
    if (!over) m_state = 0;
}

bool CGameWindow::MouseRButton(bool /*down*/) {
    return true;
}

bool CGameWindow::KeyClick(int /*key*/, int /*chr*/) {
    return true;
}

void CGameWindow::Render() {
    if (m_pSprite) m_pSprite->Render(rect.x1, rect.y1);
}

void CGameWindow::ShowWindow(bool show) {
    control::Show(this, m_state, show);
    if (m_pLayout) m_pLayout->ShowWindow(show);
}

void CGameWindow::EnableWindow(bool enable) {
    control::Enable(this, &m_state, enable);
    if (m_pLayout) m_pLayout->EnableWindow(enable);
}

bool CGameWindow::IsValid() {
    return true;
}

bool CGameWindow::Release() {
    if (IsValid()) delete this;
    return true;
}

void* CGameWindow::QueryInterface(const GUID& iid, unsigned long version) {
    return control::QueryInterface(this, iid, version);
}

unsigned int CGameWindow::GetControlType() {
    return CONTROL_WINDOW;
}
void CGameWindow::SetState(int state) {
    m_state = static_cast<unsigned int>(state);
}
int CGameWindow::GetState() {
    return static_cast<int>(m_state);
}
bool CGameWindow::IsWindowEnabled() {
    return !(m_state & STATE_DISABLED);
}
bool CGameWindow::IsWindowVisible() {
    return bVisible;
}
hgeRect CGameWindow::GetRect() {
    return rect;
}
hgeRect CGameWindow::GetClientRect() {
    return m_clientRect;
}
bool CGameWindow::SetINotifyMsg(IUnknownEx* sink) {
    return control::ConnectSink(sink, &m_pNotify);
}
