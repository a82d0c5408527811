#pragma once

#include <initializer_list>

#include "drill2d/scenes.h"

// A scene whose calls all go to one place; by itself it does nothing.
class NotedScene : public IScener {
 public:
    void show() override { Note("show"); }
    void hide() override { Note("hide"); }
    void render() override { Note("render"); }
    void update(float dt) override { Note("update", {dt}); }
    void save_ctl_status() override { Note("save"); }
    void repeat_status() override { Note("repeat"); }
    void mouse_lbdown(float x, float y) override { Note("lbdown", {x, y}); }
    void mouse_lbup(float x, float y) override { Note("lbup", {x, y}); }
    void mouse_rbdown(float x, float y) override { Note("rbdown", {x, y}); }
    void mouse_rbup(float x, float y) override { Note("rbup", {x, y}); }
    void mouse_move(float x, float y) override { Note("move", {x, y}); }

 protected:
    virtual void Note(const char* /*call*/, std::initializer_list<float> /*arguments*/ = {}) {}
};
