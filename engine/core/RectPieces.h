#pragma once

// What is left of a rectangle when another is cut out of it, without a list: for loops that cut many. Any
// thread.

#include "core/CXRect.h"

struct RectPieces {
    // No pieces when the two have no area in common.
    RectPieces(const CXRect & rect, const CXRect & other);

    const CXRect * begin() const { return pieces; }
    const CXRect * end() const { return pieces + count; }

    int count = 0;
    CXRect pieces[4]; // they don't overlap

private:
    void add(int l, int t, int r, int b) {
        if (l < r && t < b) pieces[count++] = CXRect(l, t, r, b);
    }
};
