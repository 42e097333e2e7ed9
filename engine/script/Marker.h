#pragma once

// The cursor with which scripts walk arrays and groups, round and round; -1 stands before the first place.

#include <algorithm>
#include <cstdint>
#include <limits>

class Marker {
public:
    static constexpr int kBefore = -1;

    int position() const { return position_; }
    void reset() { position_ = kBefore; }
    void set(int i, int size) { position_ = std::clamp(i, kBefore, std::max(size - 1, kBefore)); }

    // Moves by n places; the new place, or kBefore when that is none of size. Only the end that the move
    // goes to leads round to the other one. A walk through nothing doesn't move.
    int next(int n, int size) {
        std::int64_t to = std::int64_t{position_} + n;
        return size < 1 ? kBefore : moved(to >= size ? to % size : to, size);
    }
    int prev(int n, int size) {
        std::int64_t to = std::int64_t{position_} - n;
        return size < 1 ? kBefore : moved(to < 0 ? (to % size + size) % size : to, size);
    }

private:
    int moved(std::int64_t to, int size) {
        using Limits = std::numeric_limits<int>;
        position_ = static_cast<int>(std::clamp<std::int64_t>(to, Limits::min(), Limits::max()));
        return position_ >= 0 && position_ < size ? position_ : kBefore;
    }

    int position_ = kBefore;
};
