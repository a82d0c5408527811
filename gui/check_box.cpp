#include "gui/control.h"

static_assert(sizeof(void*) != 4 || sizeof(CGameCheckBox) == sizeof(CGameLable) + 4, "one field of its own");

CGameCheckBox::CGameCheckBox() : m_frameCount(4) {}

bool CGameCheckBox::LoadImageInfo(const char* file) {
    return TakeStrip(control::LoadSprite(file));
}

bool CGameCheckBox::LoadImageInfo(CGameResourceManager* mgr, const char* name) {
    control::HgeReference hge;
    return hge && mgr && TakeStrip(control::LoadSprite(mgr, name));
}

bool CGameCheckBox::TakeStrip(CGameSprite* sprite) {
    if (!TakeImage(sprite)) return false;
    rect.x2 = control::FrameWidth(sprite, m_frameCount);
    m_clientRect.Set(0, 0, rect.x2, rect.y2);
    return true;
}

void CGameCheckBox::Render() {
    if (!bVisible || !m_pSprite) return;
    int frame = (m_state & STATE_CHECKED ? 2 : 0) + (m_state & STATE_HOVER ? 1 : 0);
    float width = rect.x2 - rect.x1;
    m_pSprite->SetTextureRect(static_cast<float>(frame) * width, 0, width, rect.y2 - rect.y1, true);
    m_pSprite->Render(rect.x1, rect.y1);
}

void CGameCheckBox::MouseOver(bool over) {
    m_state = over ? m_state | STATE_HOVER : m_state & ~STATE_HOVER;
}

bool CGameCheckBox::MouseLButton(bool down) {
    if (!down || m_state & STATE_DISABLED) return false;
    m_state ^= STATE_CHECKED;
    if (getCheck()) control::Notify(m_pNotify, this, NOTIFY_CHECKED, true);
    return false;
}

unsigned int CGameCheckBox::GetControlType() {
    return CONTROL_CHECKBOX;
}
void CGameCheckBox::setFrame(int n) {
    m_frameCount = static_cast<unsigned int>(n);
}
bool CGameCheckBox::getCheck() {
    return m_state & STATE_CHECKED;
}
CGameSprite* CGameCheckBox::GetSprite() {
    return m_pSprite;
}
