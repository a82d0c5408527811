#include <new>

#include "drill2d/engine.h"
#include "drill2d/resources.h"
#include "engine/safely.h"

// Targets and sprite of an earlier call are not freed: hosts may hold their handles.
void C2DGameEngine::CreateFx(char* effectFile) {
    if (!m_pGui) return;
    int width = m_pHge->System_GetState(HGE_SCREENWIDTH);
    int height = m_pHge->System_GetState(HGE_SCREENHEIGHT);
    m_hTarget = m_pHge->Target_Create(width, height, false);
    m_hTarget1 = m_pHge->Target_Create(width, height, false);
    m_pBackSpr = new (std::nothrow)
        CGameSprite(m_pHge->Target_GetTexture(m_hTarget), m_pHge->Target_GetTexture(m_hTarget1));
    if (!m_pBackSpr) ReportTrouble("CreateFx");
    m_bEnableFx = m_pHge->Gfx_LoadEffect(effectFile);
}
