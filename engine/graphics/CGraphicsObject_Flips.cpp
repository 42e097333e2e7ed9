// What coded planes take part in: they are expanded for it.

#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

void upsideDown(char * plane, std::size_t row, int height) {
    if (!plane) return;
    std::vector<char> spare(row);
    for (int i = 0; i < height / 2; i++) {
        char * upper = plane + row * static_cast<std::size_t>(i);
        char * lower = plane + row * static_cast<std::size_t>(height - 1 - i);
        std::memcpy(spare.data(), upper, row);
        std::memcpy(upper, lower, row);
        std::memcpy(lower, spare.data(), row);
    }
}

template <class Pixel>
void mirrored(Pixel * plane, int width, int height) {
    if (!plane) return;
    for (int y = 0; y < height; y++)
        std::reverse(plane + std::ptrdiff_t{width} * y, plane + std::ptrdiff_t{width} * (y + 1));
}

} // namespace

// Runs step on raw planes. Coded ones are expanded for it and coded again.
template <class Step>
void CGraphicsObject::onExpanded(Step && step) {
    DeCompress();
    bool coded = compression_ == kCompressionRle || packedColour_, wasUnpacked = unpacked_;
    DeCompressRLE2();
    if (packedColour_) { // about to be stale
        if (ownsPixels_) {
            delete[] packedColour_;
            delete[] packedAlpha_;
        } else {
            std::fill_n(channels_, 3, nullptr);
        }
        packedColour_ = packedAlpha_ = nullptr;
        expandedHere_ = false;
        ownsPixels_ = true;
    }
    if (isRaw16()) step();
    if (!coded) return;
    Compress(kCompressionRle);
    unpacked_ = false;
    if (wasUnpacked) unpack();
}

void CGraphicsObject::FlipH() {
    onExpanded([this] {
        upsideDown(data_, static_cast<std::size_t>(width_) * 2, height_);
        upsideDown(channels_[3], static_cast<std::size_t>(width_), height_);
    });
    flippedH_ = !flippedH_;
}

void CGraphicsObject::FlipV() {
    onExpanded([this] {
        mirrored(words(), width_, height_);
        mirrored(channels_[3], width_, height_);
    });
    flippedV_ = !flippedV_;
}

void CGraphicsObject::resetFlips() {
    if (flippedV_) FlipV();
    if (flippedH_) FlipH();
}

void CGraphicsObject::replace_color(short from, short to) {
    onExpanded([&] {
        std::replace(words(), words() + count(), static_cast<std::uint16_t>(from),
                     static_cast<std::uint16_t>(to));
    });
}
