#pragma once

namespace hge {

// Where the next elements of a ring go.
class RingCursor {
 public:
    explicit RingCursor(int capacity) : capacity_(capacity) {}

    int first() const { return first_; }
    // Elements up to the end of the ring, at least one.
    int room() const { return capacity_ - first_; }
    // At the start of the ring the memory is a new one; later the rest of it is written.
    bool fresh() const { return first_ == 0; }

    // At most as many as there is room for; a full ring starts afresh.
    void Add(int elements) { first_ = elements == room() ? 0 : first_ + elements; }

 private:
    int capacity_;
    int first_ = 0;
};

}  // namespace hge
