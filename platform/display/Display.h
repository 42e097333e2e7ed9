#pragma once

// What shows the game's picture: 16-bit pixels that are seen, and perhaps a second picture behind them.

#include <cstdint>
#include <string>

namespace platform {

class Display {
public:
    virtual ~Display() = default;
    virtual const char * name() const = 0;

    // The depth that a game in a window finds: 15 (5-5-5) or 16 (5-6-5).
    virtual int depth() const = 0;
    // A picture of that size, black; false when the machine can't. What pixels() gave before is gone.
    virtual bool setMode(int width, int height, int depth, bool inWindow) = 0;
    virtual std::string problem() const { return {}; } // why it can't, in UTF-8
    virtual int width() const = 0;
    virtual int height() const = 0;
    // The picture that is seen, row by row without padding; null before setMode. Whoever wrote to it tells
    // where by show.
    virtual std::uint16_t * pixels() = 0;
    virtual void show(int left, int top, int right, int bottom) = 0;
};

} // namespace platform
