#pragma once

// A width and a height in pixels.

#include <cstdlib>

class CXSize {
public:
    CXSize() = default;
    CXSize(int cx, int cy) : cx(cx), cy(cy) {}

    int mul() const { return cx * cy; }
    int Sum() const { return cx + cy; }
    int AbsSum() const { return std::abs(cx) + std::abs(cy); }
    bool operator==(const CXSize &) const = default;

    int cx = 0, cy = 0;
};
