#include <algorithm>
#include <memory>
#include <new>

#include "drill2d/resources.h"
#include "engine/safely.h"

// Made when the library is loaded, so that hosts find the singleton before any call.
CGameResourceManager* CGameResourceManager::m_instance = new CGameResourceManager;

CGameResourceManager* CGameResourceManager::getInstance() {
    if (!m_instance) m_instance = new (std::nothrow) CGameResourceManager;
    return m_instance;
}

// Resetting the singleton is relied on: hosts replace it by constructing a manager of their own.
CGameResourceManager::CGameResourceManager() : m_hge(nullptr) {
    m_instance = nullptr;
    ReleaseCache();
}

CGameResourceManager::CGameResourceManager(HGE* hge) : m_hge(hge) {}

CGameResourceManager::~CGameResourceManager() {
    m_packetList.clear();
    if (m_hge) m_hge->Resource_RemoveAllPacks();
    m_hge = nullptr;
}

void CGameResourceManager::ReleaseCache() {
    for (const auto& [file, tex] : m_texMap)
        if (tex) m_hge->Texture_Free(tex);
    m_texMap.clear();
}

bool CGameResourceManager::AttachHge(HGE* hge) {
    if (!hge) return false;
    m_hge = hge;
    return true;
}

// A pack that HGE refuses still gives true; only its absence from the list tells.
bool CGameResourceManager::AttachPacket(const char* path) {
    if (!path) return false;
    Safely("AttachPacket", [&] {
        if (IsExistsPacket(path)) return;
        // Before the pack, which could not be found again without its name.
        m_packetList.push_back(path);
        if (!m_hge || !m_hge->Resource_AttachPack(path)) m_packetList.pop_back();
    });
    return true;
}

bool CGameResourceManager::IsExistsPacket(std::string name) {
    return std::find(m_packetList.begin(), m_packetList.end(), name) != m_packetList.end();
}

void CGameResourceManager::SetCurPacket(std::string name) {
    Safely("SetCurPacket", [&] {
        if (!IsExistsPacket(name)) return;
        auto items = std::make_unique<ResItemMap>();
        if (m_packetMap.emplace(name, items.get()).second) items.release();
        m_curPacket = name;
    });
}

void CGameResourceManager::RemovePacket(std::string name) {
    auto found = std::find(m_packetList.begin(), m_packetList.end(), name);
    if (found != m_packetList.end()) m_packetList.erase(found);
    if (m_hge) m_hge->Resource_RemovePack(name.c_str());
}

void CGameResourceManager::FreePacketResource(std::string name) {
    auto packet = m_packetMap.find(name);
    if (packet == m_packetMap.end()) return;
    for (const auto& [image, item] : *packet->second) {
        m_hge->Resource_Free(item->data);
        m_hge->Texture_Free(item->tex);
        delete item;
    }
    packet->second->clear();
}

resItem* CGameResourceManager::findData(std::string packet, std::string name) {
    auto find_in = [&name](const ResItemMap& items) {
        auto item = items.find(name);
        return item == items.end() ? nullptr : item->second;
    };
    auto own = m_packetMap.find(packet);
    if (own != m_packetMap.end())
        if (resItem* item = find_in(*own->second)) return item;
    for (const auto& [other, items] : m_packetMap)
        if (resItem* item = find_in(*items)) return item;
    return nullptr;
}

HTEXTURE CGameResourceManager::GetImage(const char* name) {
    if (!m_hge || !name) return 0;
    return Safely("GetImage", [&] { return FindOrLoad(name); });
}

HTEXTURE CGameResourceManager::FindOrLoad(const char* name) {
    if (resItem* item = findData(m_curPacket, name)) return item->tex;

    DWORD size = 0;
    // With no packet current nobody owns the image and its bytes; they stay until HGE shuts down.
    auto packet = m_packetMap.find(m_curPacket);
    if (packet == m_packetMap.end()) {
        void* data = m_hge->Resource_Load(name, &size);
        return data ? m_hge->Texture_Load(static_cast<const char*>(data), size, false) : 0;
    }
    // The record first: what is loaded is never without an owner.
    auto item = std::make_unique<resItem>();
    auto place = packet->second->emplace(name, item.get()).first;
    item->data = static_cast<BYTE*>(m_hge->Resource_Load(name, &size));
    if (!item->data) {
        packet->second->erase(place);
        return 0;
    }
    item->tex = m_hge->Texture_Load(reinterpret_cast<const char*>(item->data), size, false);
    return item.release()->tex;
}

HTEXTURE CGameResourceManager::create_tex(std::string file) {
    auto found = m_texMap.find(file);
    if (found != m_texMap.end() && found->second) return found->second;
    // This reference is kept for the life of the process, like the cache that needs it.
    if (!m_hge) m_hge = hgeCreate(HGE_VERSION);
    if (!m_hge) return 0;
    return Safely("create_tex", [&] {
        HTEXTURE& tex = m_texMap[file];
        if (!tex) tex = m_hge->Texture_Load(file.c_str(), 0, false);
        return tex;
    });
}

HTEXTURE CGameResourceManager::find_tex(std::string file) {
    auto found = m_texMap.find(file);
    return found == m_texMap.end() ? 0 : found->second;
}
