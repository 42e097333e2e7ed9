#include "platform/display/Placement.h"

#include <algorithm>
#include <cmath>

namespace platform {

Placement::Placement(int width, int height, int windowWidth, int windowHeight)
    : width_(width), height_(height) {
    double scale =
        std::min(static_cast<double>(windowWidth) / width, static_cast<double>(windowHeight) / height);
    if (double whole = std::floor(scale); whole >= scale * kWholeShare) scale = whole;
    shownWidth_ = std::max(static_cast<int>(std::lround(width * scale)), 1);
    shownHeight_ = std::max(static_cast<int>(std::lround(height * scale)), 1);
    left_ = (windowWidth - shownWidth_) / 2;
    top_ = (windowHeight - shownHeight_) / 2;
}

int Placement::part(long long v, long long times, long long by) {
    long long product = v * times, down = product / by;
    if (product % by < 0) down--;
    return static_cast<int>(std::clamp(down, -1'000'000LL, 1'000'000LL));
}

} // namespace platform
