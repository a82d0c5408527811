#pragma once

#include <functional>
#include <sstream>

#include "drill2d/flash.h"
#include "flash/control/movie_control.h"
#include "support/recording_test.h"

// Every test ends with no object alive in the module, nothing wrong with the framework and the module free.
class FlashTest : public RecordingTest {
 public:
    FlashTest() { control_->Clear(); }
    ~FlashTest() override {
        EXPECT_EQ(control_->objects, 0);
        EXPECT_EQ(control_->class_references, 0);
        FreeLibrary(module_);
        EXPECT_EQ(GetModuleHandleA("flash.ocx"), nullptr) << "a player still holds the module";
    }

    // The control's calls while something is done.
    std::vector<std::string> CallsOf(const std::function<void()>& action) {
        size_t before = strlen(control_->Record());
        action();
        std::istringstream text(control_->Record() + before);
        std::vector<std::string> calls;
        for (std::string line; std::getline(text, line);)
            calls.push_back(line);
        return calls;
    }

 protected:
    HMODULE module_ = LoadLibraryA("flash.ocx");
    MovieControl* control_ = ControlOf(module_);
};
