#pragma once

// What of the screen is to be repainted: rectangles that don't overlap, or all of it.

#include "core/CXRect.h"

#include <vector>

class CRefreshRegion {
public:
    // What the region has of it already isn't added again.
    void add(const CXRect * rect);
    void removeAll();
    bool isWhole() const { return whole_; }
    bool isEmpty() const { return !whole_ && rects_.empty(); }
    const std::vector<CXRect> & rects() const { return rects_; } // none while it is all of the screen

private:
    void addFrom(std::size_t i, CXRect rect);

    bool whole_ = true;
    std::vector<CXRect> rects_;
    std::vector<CXRect> fresh_; // what is left of the rectangle that is being added
};
