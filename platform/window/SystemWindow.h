#pragma once

// The system's window round the display's picture: what happens to it, as messages, and what it shows beside
// the picture. Main thread.

#include <vector>

namespace platform {

class SystemWindow {
public:
    struct Message {
        enum Kind { kMove, kDown, kUp, kDoubleClick, kCharacter, kFocus, kMoved, kClose };
        Kind kind = kMove;
        int button = 0;   // 0 left, 1 middle, 2 right
        int x = 0, y = 0; // a pixel of the picture, which may lie outside; kMoved: the window's place
        int value = 0;    // kCharacter: a byte of Windows-1250; kFocus: whether it has the focus now
    };
    enum class Cursor { none, arrow, hand, wait };

    virtual ~SystemWindow() = default;
    virtual const char * name() const = 0;

    // What happened since the last call, in its order. A double click takes the place of the second press.
    // Keys, joysticks and the mouse as a device find what is theirs with the devices of this world.
    virtual void poll(std::vector<Message> & messages) = 0;
    // Whoever looks sees the picture as it is now.
    virtual void present() = 0;

    virtual void setCursor(Cursor cursor) = 0;
    virtual void countCursor(int by) = 0; // shown while the sum, from 0, isn't negative
    virtual void setFrame(bool on) = 0;   // title and borders
    virtual void minimize() = 0;
};

} // namespace platform
