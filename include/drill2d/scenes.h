#pragma once

#include <vector>

#include "drill2d/export.h"

// One screen of a game, implemented by the host. SceneManager calls what is pure here; the other operations
// are the host's own to use.
struct IScener {
    // The destructor is here for the host: the manager deletes no scene. It takes slots 1 and 2.
    virtual ~IScener() {}
    // Fetch and give back what the scene needs; bring it back to its first state.
    virtual bool load() { return true; }
    virtual void unload() {}
    virtual void reset() {}

    virtual void show() = 0;
    virtual void hide() = 0;
    virtual void render() = 0;
    // Seconds since the last frame.
    virtual void update(float dt) = 0;
    virtual void pause() {}
    virtual void resume() {}
    // Keep (bring back) the status of the scene's controls: called when the scene leaves (becomes current).
    virtual void save_ctl_status() = 0;
    virtual void repeat_status() = 0;
    // Screen pixels.
    virtual void mouse_lbdown(float x, float y) = 0;
    virtual void mouse_lbup(float x, float y) = 0;
    virtual void mouse_rbdown(float x, float y) = 0;
    virtual void mouse_rbup(float x, float y) = 0;
    virtual void mouse_move(float x, float y) = 0;
};

// Routes the host's callbacks to one current scene. Owns no scene: each must outlive the manager's use of
// it. Copies share the scenes.
class DRILL2D_API SceneManager {
 public:
    SceneManager();
    SceneManager(const SceneManager& other) = default;
    SceneManager& operator=(const SceneManager& other) = default;
    virtual ~SceneManager();

    // Saves the scene's status and hides it; it does not become current. False for null and without memory.
    bool register_scene(IScener* scene);
    // Restores and shows the scene, then saves and hides the one before. False for null; true and no effect
    // for a scene that is not registered.
    bool switch_scene(IScener* scene);
    // By order of registration, up to the current scene: null beyond it, and before the first switch.
    IScener* get_scene(int index);
    // Null (-1) before the first switch.
    IScener* get_cur_scene();
    int get_cur_index();
    // Hides every scene; the current one stays current.
    void hide();

    // To the current scene, if there is one.
    void update_scene(float dt);
    void render_scene();
    void mouse_lbdown(float x, float y);
    void mouse_lbup(float x, float y);
    void mouse_rbdown(float x, float y);
    void mouse_rbup(float x, float y);
    void mouse_move(float x, float y);

 protected:
    void save_scene_ctl_status();
    void repeat_scene_status();

 private:
    int m_nCurIndex;
    std::vector<IScener*> m_scenes;
};
