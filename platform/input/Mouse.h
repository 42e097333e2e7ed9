#pragma once

// The mouse: its steps and buttons from a buffer, for whoever reads the device, and the system's pointer that
// it moves. Places are the screen's pixels.

#include <vector>

namespace platform {

class Mouse {
public:
    enum Part { kAxisX, kAxisY, kLeft, kRight, kMiddle }; // of an item
    struct Item {
        Part part = kAxisX;
        int value = 0; // an axis: the steps; a button: kDown or 0
    };
    static constexpr int kDown = 0x80;

    virtual ~Mouse() = default;
    virtual const char * name() const = 0;

    // ---- the device, on the thread that polls
    virtual bool acquire() = 0;
    // At most so many items in their order, taken from the buffer; false when the input was lost, to another
    // program, until it is acquired again.
    virtual bool read(std::vector<Item> & items, std::size_t most) = 0;

    // ---- the pointer, on the main thread
    virtual bool isDown(Part button) = 0;
    virtual int x() = 0;
    virtual int y() = 0;
    virtual void moveTo(int x, int y) = 0; // the system tells of it as of any move
    // Keeps the pointer in a rectangle, right and bottom not included, or lets it go again.
    virtual void clip(int left, int top, int right, int bottom) = 0;
    virtual void unclip() = 0;
};

} // namespace platform
