#include <ocidl.h>

#include "drill2d/flash.h"
#include "engine/safely.h"
#include "flash/bstr.h"
#include "flash/play_state.h"
#include "flash/shockwave_flash.h"

using flash::Bstr;

bool FlashPlayer::IsPlaying() {
    VARIANT_BOOL playing = VARIANT_FALSE;
    if (m_flash) m_flash->IsPlaying(&playing);
    return playing != VARIANT_FALSE;
}

void FlashPlayer::Pause() {
    ++m_pauseCount;
    if (m_playState == kStopped) return;
    m_playState = kPaused;
    if (m_pauseCount == 1 && m_flash) m_flash->StopPlay();
}

void FlashPlayer::Unpause() {
    --m_pauseCount;
    if (m_pauseCount != 0 || !m_flash || m_playState == kStopped) return;
    m_playState = kPlaying;
    m_flash->Play();
}

void FlashPlayer::Play() {
    if (!m_flash) return;
    m_playState = kPlaying;
    m_flash->Play();
}

void FlashPlayer::Stop() {
    if (!m_flash) return;
    m_playState = kStopped;
    m_flash->StopPlay();
}

void FlashPlayer::Back() {
    if (!m_flash) return;
    m_flash->Back();
    m_flash->Play();
}

void FlashPlayer::Rewind() {
    if (!m_flash) return;
    m_flash->Rewind();
    m_flash->Play();
}

void FlashPlayer::Forward() {
    if (!m_flash) return;
    m_flash->Forward();
    m_flash->Play();
}

void FlashPlayer::GotoFrame(int frame) {
    if (!m_flash) return;
    m_flash->GotoFrame(frame);
    m_flash->Play();
}

int FlashPlayer::GetCurrentFrame() {
    long frame = -1;
    if (m_flash) m_flash->CurrentFrame(&frame);
    return frame;
}

int FlashPlayer::GetTotalFrames() {
    long frames = -1;
    if (m_flash) m_flash->get_TotalFrames(&frames);
    return frames;
}

std::string FlashPlayer::GetCurrentLabel(const std::string& target) {
    Bstr label;
    if (m_flash) m_flash->TCurrentLabel(Bstr(target).Get(), label.Put());
    return Safely("GetCurrentLabel", [&] { return label.Text(); });
}

void FlashPlayer::CallFrame(const std::string& target, int frame) {
    if (m_flash) m_flash->TCallFrame(Bstr(target).Get(), frame);
}

void FlashPlayer::CallLabel(const std::string& target, const std::string& label) {
    if (m_flash) m_flash->TCallLabel(Bstr(target).Get(), Bstr(label).Get());
}

std::string FlashPlayer::GetVariable(const std::string& name) {
    Bstr value;
    if (m_flash) m_flash->GetVariable(Bstr(name).Get(), value.Put());
    return Safely("GetVariable", [&] { return value.Text(); });
}

void FlashPlayer::SetVariable(const std::string& name, const std::string& value) {
    if (m_flash) m_flash->SetVariable(Bstr(name).Get(), Bstr(value).Get());
}

long FlashPlayer::GetBackgroundColor() {
    long color = 0;
    if (m_flash) m_flash->get_BackgroundColor(&color);
    return color;
}

void FlashPlayer::SetBackgroundColor(long color) {
    if (m_flash) m_flash->put_BackgroundColor(color);
}

int FlashPlayer::GetLoopPlay() {
    VARIANT_BOOL loop = VARIANT_FALSE;
    if (m_flash) m_flash->get_Loop(&loop);
    return loop == VARIANT_TRUE ? 1 : 0;
}

void FlashPlayer::SetLoopPlay(bool loop) {
    if (m_flash) m_flash->put_Loop(loop ? VARIANT_TRUE : VARIANT_FALSE);
}

void FlashPlayer::MouseMove(int x, int y) {
    SendMouse(WM_MOUSEMOVE, 0, x, y);
}

void FlashPlayer::MouseLButtonDown(int x, int y) {
    SendMouse(WM_LBUTTONDOWN, MK_LBUTTON, x, y);
}

void FlashPlayer::MouseLButtonUp(int x, int y) {
    SendMouse(WM_LBUTTONUP, 0, x, y);
}

void FlashPlayer::SendMouse(UINT message, WPARAM keys, int x, int y) {
    if (!m_windowless) return;
    LRESULT result = 0;
    DWORD point = static_cast<DWORD>(y) << 16 | (x & 0xFFFF);
    m_windowless->OnWindowMessage(message, keys, static_cast<LPARAM>(point), &result);
}
