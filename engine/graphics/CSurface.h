#pragma once

// The display: its size and depth, and the table that widens pixels for a 24- or 32-bit one.

#include "core/CXSize.h"

#include <cstdint>

class CSurface {
public:
    CSurface(CXSize size, int depth) : size_(size), depth_(depth) { prepareBppConversionTable(depth); }

    CXSize getSize() const { return size_; }
    int getDepth() const { return depth_; } // 15, 16, 24 or 32

    // 65536 entries: a 16-bit pixel as 0x00RRGGBB, the low bits of each byte zero. Null until prepared.
    static std::uint32_t * bpp_cnv_table; // owned, made once

    static void prepareBppConversionTable(int depth); // nothing for a depth below 24
    static std::uint32_t * getBppConversionTable() { return bpp_cnv_table; }
    static void releaseBppConversionTable();

private:
    CXSize size_;
    int depth_;
};
