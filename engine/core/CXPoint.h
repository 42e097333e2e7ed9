#pragma once

// A place in pixels. Sums that leave 32 bits wrap around, here as in sizes and rectangles.

#include "core/Wrapping.h"

class CXPoint {
public:
    CXPoint() = default;
    CXPoint(int x, int y) : x(x), y(y) {}

    CXPoint operator+(int d) const { return {wrap::add(x, d), wrap::add(y, d)}; }
    CXPoint operator-(int d) const { return {wrap::sub(x, d), wrap::sub(y, d)}; }
    CXPoint operator+(CXPoint p) const { return {wrap::add(x, p.x), wrap::add(y, p.y)}; }
    CXPoint operator-(CXPoint p) const { return {wrap::sub(x, p.x), wrap::sub(y, p.y)}; }
    bool operator==(const CXPoint &) const = default;

    int x = 0, y = 0;
};
