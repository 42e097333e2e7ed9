#pragma once

// A place in pixels.

class CXPoint {
public:
    CXPoint() = default;
    CXPoint(int x, int y) : x(x), y(y) {}

    CXPoint operator+(int d) const { return {x + d, y + d}; }
    CXPoint operator-(int d) const { return {x - d, y - d}; }
    CXPoint operator+(CXPoint p) const { return {x + p.x, y + p.y}; }
    CXPoint operator-(CXPoint p) const { return {x - p.x, y - p.y}; }
    bool operator==(const CXPoint &) const = default;

    int x = 0, y = 0;
};
