#include <algorithm>

#include "drill2d/scenes.h"
#include "engine/safely.h"

SceneManager::SceneManager() : m_nCurIndex(-1) {}

SceneManager::~SceneManager() = default;

bool SceneManager::register_scene(IScener* scene) {
    if (!scene) return false;
    if (!Safely("register_scene", [&] { return m_scenes.push_back(scene), true; })) return false;
    scene->save_ctl_status();
    scene->hide();
    return true;
}

bool SceneManager::switch_scene(IScener* scene) {
    if (!scene) return false;
    auto found = std::find(m_scenes.begin(), m_scenes.end(), scene);
    if (found == m_scenes.end()) return true;
    int index = static_cast<int>(found - m_scenes.begin());

    scene->repeat_status();
    scene->show();
    IScener* old = get_cur_scene();
    if (old && old != scene) {
        old->save_ctl_status();
        old->hide();
    }
    m_nCurIndex = index;
    return true;
}

IScener* SceneManager::get_scene(int index) {
    if (index < 0 || index > m_nCurIndex) return nullptr;
    return m_scenes[static_cast<size_t>(index)];
}

IScener* SceneManager::get_cur_scene() {
    return get_scene(m_nCurIndex);
}

int SceneManager::get_cur_index() {
    return m_nCurIndex;
}

// By index: a scene may register another one while it is called.
void SceneManager::hide() {
    for (size_t i = 0; i < m_scenes.size(); ++i)
        m_scenes[i]->hide();
}

void SceneManager::update_scene(float dt) {
    if (IScener* scene = get_cur_scene()) scene->update(dt);
}

void SceneManager::render_scene() {
    if (IScener* scene = get_cur_scene()) scene->render();
}

void SceneManager::mouse_lbdown(float x, float y) {
    if (IScener* scene = get_cur_scene()) scene->mouse_lbdown(x, y);
}

void SceneManager::mouse_lbup(float x, float y) {
    if (IScener* scene = get_cur_scene()) scene->mouse_lbup(x, y);
}

void SceneManager::mouse_rbdown(float x, float y) {
    if (IScener* scene = get_cur_scene()) scene->mouse_rbdown(x, y);
}

void SceneManager::mouse_rbup(float x, float y) {
    if (IScener* scene = get_cur_scene()) scene->mouse_rbup(x, y);
}

void SceneManager::mouse_move(float x, float y) {
    if (IScener* scene = get_cur_scene()) scene->mouse_move(x, y);
}

void SceneManager::save_scene_ctl_status() {
    if (IScener* scene = get_cur_scene()) scene->save_ctl_status();
}

void SceneManager::repeat_scene_status() {
    if (IScener* scene = get_cur_scene()) scene->repeat_status();
}
