#pragma once

// A mouse that does what a test or a list of events says. The window stands in the screen's corner.

#include "platform/input/Mouse.h"
#include "platform/thread/Mutex.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace platform {

class ScriptedMouse : public Mouse {
public:
    const char * name() const override { return "scripted"; }

    bool acquire() override {
        Lock hold(mutex_);
        lost_ = false;
        return true;
    }
    bool read(std::vector<Item> & items, std::size_t most) override {
        Lock hold(mutex_);
        if (lost_) return false;
        auto end = items_.begin() + static_cast<std::ptrdiff_t>(std::min(most, items_.size()));
        items.insert(items.end(), items_.begin(), end);
        items_.erase(items_.begin(), end);
        return true;
    }

    bool isDown(Part button) override { return down_[button]; }
    int x() override { return x_; }
    int y() override { return y_; }
    void moveTo(int x, int y) override {
        place(x, y);
        moved_ = true;
    }
    void clip(int left, int top, int right, int bottom) override {
        clip_ = {left, top, right, bottom};
        place(x_, y_);
    }
    void unclip() override { clip_ = {}; }

    // ---- the hand. What it does with the pointer, told by the host's messages:
    void place(int x, int y) { // clip holds the pointer
        x_ = within(x, clip_[0], clip_[2]);
        y_ = within(y, clip_[1], clip_[3]);
    }
    void set(Part button, bool down) { down_[button] = down; }
    // Whether moveTo was called since the last time: the message of it is due.
    bool takeMoved() { return std::exchange(moved_, false); }
    // What it does with the device:
    void feed(Item item) {
        Lock hold(mutex_);
        items_.push_back(item);
    }
    void lose() {
        Lock hold(mutex_);
        lost_ = true;
    }

private:
    static int within(int v, int low, int high) { return low < high ? std::clamp(v, low, high - 1) : v; }

    int x_ = 0, y_ = 0;
    std::array<int, 4> clip_ = {}; // left, top, right, bottom
    std::array<bool, 5> down_ = {};
    bool moved_ = false;
    Mutex mutex_;
    std::vector<Item> items_ GUARDED_BY(mutex_);
    bool lost_ GUARDED_BY(mutex_) = false;
};

} // namespace platform
