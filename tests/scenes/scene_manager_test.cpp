#include <cstring>
#include <sstream>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "support/noted_scene.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> g_calls;

class RecordingScene : public NotedScene {
 public:
    explicit RecordingScene(std::string name) : name_(std::move(name)) {}

 private:
    void Note(const char* call, std::initializer_list<float> arguments) override {
        std::ostringstream line;
        line << name_ << '.' << call;
        for (float argument : arguments)
            line << ' ' << argument;
        g_calls.push_back(line.str());
    }

    std::string name_;
};

class OpenManager : public SceneManager {
 public:
    using SceneManager::repeat_scene_status;
    using SceneManager::save_scene_ctl_status;
};

class SceneManagerTest : public testing::Test {
 protected:
    void SetUp() override { g_calls.clear(); }

    std::vector<std::string> TakeCalls() { return std::exchange(g_calls, {}); }

    void RegisterAll() {
        for (IScener* scene : {&a_, &b_, &c_})
            EXPECT_TRUE(manager_.register_scene(scene));
    }
    std::vector<std::string> CallsOfSwitchTo(IScener& scene) {
        g_calls.clear();
        EXPECT_TRUE(manager_.switch_scene(&scene));
        return TakeCalls();
    }
    std::vector<std::string> CallsOfAll() {
        g_calls.clear();
        manager_.update_scene(0.5f);
        manager_.render_scene();
        manager_.mouse_lbdown(1, 2);
        manager_.mouse_lbup(3, 4);
        manager_.mouse_rbdown(5, 6);
        manager_.mouse_rbup(7, 8);
        manager_.mouse_move(9, 10);
        manager_.save_scene_ctl_status();
        manager_.repeat_scene_status();
        return TakeCalls();
    }

    RecordingScene a_{"a"}, b_{"b"}, c_{"c"};
    OpenManager manager_;
};

TEST_F(SceneManagerTest, RefusesNullAndIgnoresUnknownScenes) {
    EXPECT_FALSE(manager_.register_scene(nullptr));
    EXPECT_FALSE(manager_.switch_scene(nullptr));
    EXPECT_TRUE(manager_.switch_scene(&a_)) << "empty table";
    EXPECT_EQ(manager_.get_cur_index(), -1);
    manager_.register_scene(&a_);
    manager_.switch_scene(&a_);
    EXPECT_THAT(CallsOfSwitchTo(b_), IsEmpty());
    EXPECT_EQ(manager_.get_cur_scene(), &a_);
}

TEST_F(SceneManagerTest, ShowsTheNewSceneBeforeItHidesTheOldOne) {
    RegisterAll();
    EXPECT_THAT(TakeCalls(), ElementsAre("a.save", "a.hide", "b.save", "b.hide", "c.save", "c.hide"));
    EXPECT_THAT(CallsOfSwitchTo(a_), ElementsAre("a.repeat", "a.show"));
    EXPECT_THAT(CallsOfSwitchTo(c_), ElementsAre("c.repeat", "c.show", "a.save", "a.hide"));
    EXPECT_THAT(CallsOfSwitchTo(c_), ElementsAre("c.repeat", "c.show"));
    manager_.register_scene(&a_);
    manager_.switch_scene(&a_);
    EXPECT_EQ(manager_.get_cur_index(), 0) << "the first of two entries";
    g_calls.clear();
    manager_.hide();
    EXPECT_THAT(TakeCalls(), ElementsAre("a.hide", "b.hide", "c.hide", "a.hide"));
    EXPECT_EQ(manager_.get_cur_scene(), &a_);
}

TEST_F(SceneManagerTest, RoutesToTheCurrentSceneAndFetchesUpToIt) {
    RegisterAll();
    EXPECT_THAT(CallsOfAll(), IsEmpty());
    EXPECT_TRUE(manager_.get_cur_index() == -1 && !manager_.get_cur_scene() && !manager_.get_scene(0));
    manager_.switch_scene(&b_);
    EXPECT_THAT(CallsOfAll(), ElementsAre("b.update 0.5", "b.render", "b.lbdown 1 2", "b.lbup 3 4",
                                          "b.rbdown 5 6", "b.rbup 7 8", "b.move 9 10", "b.save", "b.repeat"));
    EXPECT_TRUE(manager_.get_scene(0) == &a_ && manager_.get_scene(1) == &b_);
    EXPECT_TRUE(!manager_.get_scene(-1) && !manager_.get_scene(2));
}

// A scene that switches on inside its own update is what a game does at the end of a level.
TEST_F(SceneManagerTest, SwitchesInsideAnUpdate) {
    struct Leaver : RecordingScene {
        Leaver(SceneManager& manager, IScener& next)
            : RecordingScene("leaver"), manager_(manager), next_(next) {}
        void update(float) override { manager_.switch_scene(&next_); }
        SceneManager& manager_;
        IScener& next_;
    } leaver(manager_, b_);
    RegisterAll();
    manager_.register_scene(&leaver);
    manager_.switch_scene(&leaver);
    g_calls.clear();
    manager_.update_scene(0);
    manager_.render_scene();
    EXPECT_THAT(TakeCalls(), ElementsAre("b.repeat", "b.show", "leaver.save", "leaver.hide", "b.render"));
}

// Position of a virtual operation in the table, from 1; a member pointer holds its offset plus one.
template <class F>
size_t Slot(F operation) {
    uintptr_t word;
    std::memcpy(&word, &operation, sizeof word);
    return (word - 1) / sizeof(void*) + 1;
}

TEST(IScenerTest, KeepsThePlacesOfItsOperations) {
    EXPECT_TRUE(Slot(&IScener::show) == 6 && Slot(&IScener::update) == 9);
    EXPECT_TRUE(Slot(&IScener::save_ctl_status) == 12 && Slot(&IScener::mouse_move) == 18);
}

}  // namespace
