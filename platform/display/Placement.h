#pragma once

// Where a picture lies in a window of another size: as large as it fits with its shape kept, in the middle.
// It grows by whole steps, so that its pixels stay even, unless that wastes a good part of the window.

#include <algorithm>

namespace platform {

class Placement {
public:
    static constexpr double kWholeShare = 0.8; // of the largest scale that fits, for a whole step to be taken

    Placement() = default;
    Placement(int width, int height, int windowWidth, int windowHeight); // all above 0

    int left() const { return left_; }
    int top() const { return top_; }
    int shownWidth() const { return shownWidth_; }
    int shownHeight() const { return shownHeight_; }
    bool isWhole() const { return shownWidth_ % width_ == 0 && shownHeight_ % height_ == 0; }

    // The pixel of the picture under a pixel of the window; outside it counts on.
    int toPictureX(int x) const { return part(x - left_, width_, shownWidth_); }
    int toPictureY(int y) const { return part(y - top_, height_, shownHeight_); }
    // A pixel of the window in the middle of one of the picture, and the first one of it.
    int toWindowX(int x) const {
        return std::max(edgeX(x), left_ + part(2LL * x + 1, shownWidth_, 2LL * width_));
    }
    int toWindowY(int y) const {
        return std::max(edgeY(y), top_ + part(2LL * y + 1, shownHeight_, 2LL * height_));
    }
    int edgeX(int x) const { return left_ - part(-static_cast<long long>(x), shownWidth_, width_); }
    int edgeY(int y) const { return top_ - part(-static_cast<long long>(y), shownHeight_, height_); }

private:
    static int part(long long v, long long times, long long by); // rounded down

    int width_ = 1, height_ = 1;
    int left_ = 0, top_ = 0, shownWidth_ = 1, shownHeight_ = 1;
};

} // namespace platform
