#pragma once

// The keyboard as a polled device: its keys become the window's key events, a held key again and again while
// it repeats. The window owns it; tick runs on the polling thread, flushSignals on the main thread, both with
// the window's lock held.

#include "app/Listeners.h"
#include "core/CXObject.h"
#include "core/CXString.h"
#include "platform/input/Keyboard.h"

#include <array>
#include <cstdint>
#include <vector>

class CWindow;

class CKeyboard : public CXObject, public CInputPoller {
public:
    static constexpr std::size_t kItems = 1024;  // read at most in one tick
    static constexpr std::uint32_t kRepeat = 10; // milliseconds between two flushes
    static constexpr int kKeys = 256;

    explicit CKeyboard(CWindow * window);
    CKeyboard(const CKeyboard &) = delete;
    CKeyboard & operator=(const CKeyboard &) = delete;
    ~CKeyboard() override;

    void tick() override;
    void flushSignals(bool deliver) override;

    void setAutoRepeat(bool on) { autoRepeat_ = on; }
    bool isAnyKeyPressed() const { return !keysHeld_.empty(); }
    // By a name in any case: a direction, a letter, a digit, "space", "lshift", "rshift", "shift" for either,
    // and the same of "ctrl" and "alt".
    bool isKeyPressed(const CXString & name) const;

    // What a key types now, by Shift, Alt and Caps Lock: a character in Windows-1250, 0 for none.
    int getChar(int code) const;
    void onChar(int code); // the window hears what the key types
    void initLanguage();   // the national characters behind Alt, by the window's language

private:
    struct National {
        char letter;
        unsigned char lower, upper;
    };
    struct Pressed {
        int code;
        bool told;  // at least once
        bool ended; // it is up again: told once, it goes
    };

    static const National kCzech[], kHungarian[];

    bool isDown(int code) const { return state_[static_cast<std::size_t>(code)] != 0; }
    void release(int code);

    CWindow * window_;
    platform::Keyboard & device_;
    bool autoRepeat_ = true;
    std::array<std::uint8_t, kKeys> state_ = {}; // 128: down
    std::array<bool, kKeys> held_ = {};          // told or to be told of
    std::vector<Pressed> keysDown_;
    std::vector<int> keysUp_, keysHeld_;
    const National * layout_ = nullptr; // ends with a letter 0; null for none
    std::uint32_t flushed_ = 0;         // the moment of the last flush
    bool everFlushed_ = false;
    std::vector<platform::Keyboard::Item> items_; // of one tick
};
