#pragma once

#include <memory>

#include "drill2d/controls.h"
#include "drill2d/font.h"

// A label's own font lives for ever; this one's goes with it.
class OwningLabel : public CGameLable {
 public:
    ~OwningLabel() override { std::default_delete<GfxFont>()(m_pFont); }
};
