#include <cstddef>
#include <new>

#include "drill2d/controls.h"
#include "engine/safely.h"

static_assert(sizeof(void*) != 4 ||
                  (sizeof(LayOutControl) == 16 && offsetof(LayOutControl, id) == 4 &&
                   offsetof(LayOutControl, next) == 8 && offsetof(LayOutControl, prev) == 12),
              "the node's order");
static_assert(sizeof(void*) != 4 || sizeof(CLayout) == 4 + 12 + 40, "the layout's fields");

namespace {

// Null for an object that is no control of this library, or does not answer.
IControlOpera* AskControl(hgeGUIObject* child) {
    IControlOpera* control = dynamic_cast<IControlOpera*>(child);
    if (!control) return nullptr;
    return static_cast<IControlOpera*>(control->QueryInterface(IID_IControlOpera, CONTROL_INTERFACE_VERSION));
}

template <typename Operation>
void ForEachControl(LayOutControl* head, Operation operation) {
    for (LayOutControl* node = head; node; node = node->next)
        if (IControlOpera* control = AskControl(node->control)) operation(control);
}

}  // namespace

CLayout::CLayout(IControlOpera* owner) : m_count(0), m_head(nullptr), m_pOwner(owner) {
    if (owner) m_rect = owner->GetRect();
}

unsigned long CLayout::GetCount() {
    return m_count;
}

bool CLayout::AddControl(hgeGUIObject* control) {
    LayOutControl* node = new (std::nothrow) LayOutControl{control, m_count + 1, m_head, nullptr};
    if (!node) {
        ReportTrouble("a layout's AddControl");
        return false;
    }
    ++m_count;
    if (m_head) m_head->prev = node;
    m_head = node;
    return true;
}

hgeGUIObject* CLayout::EnumControl(unsigned int index) {
    if (index >= m_count) return nullptr;
    LayOutControl* node = m_head;
    while (node && index-- > 0)
        node = node->next;
    return node ? node->control : nullptr;
}

bool CLayout::RemoveAt(unsigned int id) {
    LayOutControl* node = m_head;
    while (node && node->id != id)
        node = node->next;
    if (!node) return false;
    (node->prev ? node->prev->next : m_head) = node->next;
    if (node->next) node->next->prev = node->prev;
    --m_count;
    delete node;
    return true;
}

void CLayout::RemoveAll() {
    while (LayOutControl* node = m_head) {
        m_head = node->next;
        delete node;
    }
    m_count = 0;
}

LayOutControl* CLayout::GetTail() {
    LayOutControl* node = m_head;
    while (node && node->next)
        node = node->next;
    return node;
}

void CLayout::MoveWindow(float x, float y, float w, float h, bool bSize) {
    if (!m_pOwner) return;
    hgeRect owner = m_pOwner->GetRect();
    if (!bSize) {
        w = m_rect.x2 - m_rect.x1;
        h = m_rect.y2 - m_rect.y1;
    }
    m_rect.Set(owner.x1 + x, owner.y1 + y, owner.x1 + x + w, owner.y1 + y + h);
    m_clientRect.Set(0, 0, w, h);
    MoveWindowEx();
}

void CLayout::MoveWindowEx() {
    ForEachControl(m_head, [this](IControlOpera* control) {
        hgeRect client = control->GetClientRect();
        control->MoveWindow(client.x1, client.y1, 0, 0, this, false);
    });
}

bool CLayout::ShowWindow(bool show) {
    ForEachControl(m_head, [show](IControlOpera* control) { control->ShowWindow(show); });
    return false;
}

bool CLayout::EnableWindow(bool enable) {
    ForEachControl(m_head, [enable](IControlOpera* control) { control->EnableWindow(enable); });
    return false;
}

void CLayout::ReBuildZ() {
    m_count = 0;
    for (LayOutControl* node = m_head; node; node = node->next)
        node->id = ++m_count;
}

hgeRect CLayout::GetClientRect() {
    return m_clientRect;
}
hgeRect CLayout::GetRect() {
    return m_rect;
}
