#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hgerect.h"
#include "support/recording_hge.h"

// Every test finds the recording framework as new and leaves it without a fault and a reference.
class RecordingTest : public testing::Test {
 protected:
    RecordingTest() { Recording().Reset(); }
    ~RecordingTest() override {
        EXPECT_EQ(Recording().references, 0);
        EXPECT_THAT(Recording().Faults(), testing::IsEmpty());
    }
};

inline std::vector<float> Edges(const hgeRect& rect) {
    return {rect.x1, rect.y1, rect.x2, rect.y2};
}
