#pragma once

// The display: the picture that is seen, its size and depth, and the table that widens pixels for a 24- or
// 32-bit one. Owned by the window; there is one for a display at a time.

#include "core/CXObject.h"
#include "core/CXRect.h"
#include "core/CXSize.h"

#include <cstdint>

class CDirectDrawSurface;

class CSurface : public CXObject {
public:
    static constexpr int kNoDisplay = -998; // error code: the machine has no such mode

    // Full screen with flipping: the whole back picture comes to the front at once.
    CSurface(CXSize size, int depth, bool flipping = false);
    // In a window, at the display's own depth.
    explicit CSurface(CXSize size);

    CXSize getSize() const { return size_; }
    int getDepth() const { return depth_; } // 15, 16, 24 or 32
    bool IsFlippingEnabled() const { return flipping_; }

    // A part of the source to a place on the display, cut to both.
    void Blt(CDirectDrawSurface * source, int x, int y, CXRect * rect);
    void Flip(CDirectDrawSurface * back); // all of it

    // Counts a frame, and writes over the picture how many the last whole second had.
    void ShowFPS(CXPoint place, CDirectDrawSurface * surface);
    void ShowFPS(unsigned long frames); // "FPS: 25   "

    // 65536 entries: a 16-bit pixel as 0x00RRGGBB, the low bits of each byte zero. Null until prepared.
    static std::uint32_t * bpp_cnv_table; // owned, made once

    static void prepareBppConversionTable(int depth); // nothing for a depth below 24
    static std::uint32_t * getBppConversionTable() { return bpp_cnv_table; }
    static void releaseBppConversionTable();

private:
    void open(bool inWindow);

    CXSize size_;
    int depth_;
    bool flipping_ = false;
    int frames_ = 0;              // of the second that runs
    unsigned long perSecond_ = 0; // of the one before
    std::int64_t second_ = 0;     // when it began, of the clock's counter
};
