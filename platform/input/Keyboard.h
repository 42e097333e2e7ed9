#pragma once

// The keyboard: the changes of its keys from a buffer, for whoever polls it, and the keys that decide what
// another one types. Codes count keys, not characters: 0 to 255, Esc is 1.

#include <cstddef>
#include <vector>

namespace platform {

class Keyboard {
public:
    struct Item {
        int code = 0;
        bool down = false;
    };

    virtual ~Keyboard() = default;
    virtual const char * name() const = 0;

    // At most so many changes in their order, taken from the buffer; false when it can't be read now. On the
    // thread that polls.
    virtual bool read(std::vector<Item> & items, std::size_t most) = 0;

    // ---- on the main thread
    virtual bool isDown(int code) = 0;
    virtual bool isCapsLockOn() = 0;
};

} // namespace platform
