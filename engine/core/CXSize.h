#pragma once

// A width and a height in pixels.

#include "core/Wrapping.h"

class CXSize {
public:
    CXSize() = default;
    CXSize(int cx, int cy) : cx(cx), cy(cy) {}

    int mul() const { return wrap::mul(cx, cy); }
    int Sum() const { return wrap::add(cx, cy); }
    int AbsSum() const { return wrap::add(wrap::abs(cx), wrap::abs(cy)); }
    bool operator==(const CXSize &) const = default;

    int cx = 0, cy = 0;
};
