#include "graphics/CRefreshRegion.h"

#include "core/RectPieces.h"

void CRefreshRegion::removeAll() {
    rects_.clear();
    whole_ = false;
}

// That very rectangle counts as all of the screen, as null does.
void CRefreshRegion::add(const CXRect * rect) {
    if (whole_) return;
    if (!rect || *rect == CXRect(0, 0, 800, 600)) {
        rects_.clear();
        whole_ = true;
        return;
    }
    fresh_.clear();
    addFrom(0, *rect);
    rects_.insert(rects_.end(), fresh_.begin(), fresh_.end());
}

// A rectangle against those from the i-th on: what lies in one of them goes, what one sticks out of is cut.
void CRefreshRegion::addFrom(std::size_t i, CXRect rect) {
    for (; i < rects_.size(); i++) {
        const CXRect & there = rects_[i];
        if (rect.left >= there.right || rect.right <= there.left || rect.top >= there.bottom ||
            rect.bottom <= there.top)
            continue;
        if (there.isInside(rect)) {
            rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i--));
            continue;
        }
        if (rect.isInside(there)) return;
        for (const CXRect & piece : RectPieces(rect, there)) addFrom(i + 1, piece);
        return;
    }
    fresh_.push_back(rect);
}
