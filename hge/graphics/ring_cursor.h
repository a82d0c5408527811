#pragma once

namespace hge {

// Where the next element of a ring goes and which ones wait to be drawn.
class RingCursor {
 public:
    explicit RingCursor(int capacity) : capacity_(capacity) {}

    bool full() const { return end_ == capacity_; }
    int first() const { return first_; }
    int pending() const { return end_ - first_; }
    // At the start of the ring the memory is a new one; later the rest of it is written.
    bool fresh() const { return end_ == 0; }

    // Index of one element more. Not when full.
    int Add() { return end_++; }
    // What was pending is drawn; a full ring starts afresh.
    void Drawn() {
        if (full()) end_ = 0;
        first_ = end_;
    }

 private:
    int capacity_;
    int first_ = 0;
    int end_ = 0;
};

}  // namespace hge
