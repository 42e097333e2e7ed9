#pragma once

// A keyboard whose keys a test or a list of events presses.

#include "platform/input/Keyboard.h"
#include "platform/thread/Mutex.h"

#include <algorithm>
#include <bitset>

namespace platform {

class ScriptedKeyboard : public Keyboard {
public:
    static constexpr int kCapsLock = 58;

    const char * name() const override { return "scripted"; }
    bool read(std::vector<Item> & items, std::size_t most) override {
        Lock hold(mutex_);
        auto end = items_.begin() + static_cast<std::ptrdiff_t>(std::min(most, items_.size()));
        items.insert(items.end(), items_.begin(), end);
        items_.erase(items_.begin(), end);
        return true;
    }
    bool isDown(int code) override { return down_[place(code)]; }
    bool isCapsLockOn() override { return capsLock_; }

    // ---- the hands
    void set(int code, bool down) {
        if (code == kCapsLock && down && !down_[place(code)]) capsLock_ = !capsLock_;
        down_[place(code)] = down;
        Lock hold(mutex_);
        items_.push_back({code, down});
    }

private:
    static std::size_t place(int code) { return static_cast<std::size_t>(code) & 255U; }

    std::bitset<256> down_;
    bool capsLock_ = false;
    Mutex mutex_;
    std::vector<Item> items_ GUARDED_BY(mutex_);
};

} // namespace platform
