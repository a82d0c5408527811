#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/recording_sink.h"
#include "support/win32_seams.h"

// The one engine of the process, started on the recording framework once for all tests of a program.
class RunningEngine : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        Recording().Reset();
        Recording().on_start = [] { return true; };
        if (!Engine()->GetGui()) Engine()->InitHge(800, 600, "test", false);
    }
    void SetUp() override {
        Recording().Reset();
        Recording().initiated = true;
        win32_seams::Reset();
        win32_seams::SetActiveWindow(Recording().window);
    }
    void TearDown() override {
        Engine()->StopMusic();
        while (Engine()->GetSoundSize())
            Engine()->FreeSound(0);
        EXPECT_THAT(Recording().Faults(), testing::IsEmpty());
    }
    static I2DGameEngine* Engine() { return C2DGameEngine::Get2DGameEngineInstance(); }
};
