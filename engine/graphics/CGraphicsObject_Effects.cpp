// What is done to all pixels of an object for good. On coded planes nothing happens.

#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// The plane whose pixel (i, j) is the old one at (columns[i], rows[j]).
template <class Pixel>
char * picked(const char * plane, int width, const std::vector<int> & columns,
              const std::vector<int> & rows) {
    if (!plane) return nullptr;
    const auto * from = reinterpret_cast<const Pixel *>(plane);
    char * out = new char[columns.size() * rows.size() * sizeof(Pixel)];
    auto * to = reinterpret_cast<Pixel *>(out);
    for (int y : rows) {
        const Pixel * row = from + static_cast<std::ptrdiff_t>(y) * width;
        for (int x : columns) *to++ = row[x];
    }
    return out;
}

std::vector<int> steps(int count, int size, double factor) {
    std::vector<int> at(static_cast<std::size_t>(count));
    for (int i = 0; i < count; i++)
        at[static_cast<std::size_t>(i)] = std::min(static_cast<int>(i / factor), size - 1);
    return at;
}

template <class Pixel>
void displaced(char * out, const char * plane, const CXPoint * map, int width, int height) {
    const auto * from = reinterpret_cast<const Pixel *>(plane);
    auto * to = reinterpret_cast<Pixel *>(out);
    std::int64_t total = std::int64_t{width} * height, i = 0;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++, i++) {
            std::int64_t at = (std::int64_t{y} + map[i].y) * width + x + map[i].x;
            to[i] = from[at >= 1 && at < total ? at : i];
        }
}

} // namespace

void CGraphicsObject::Scale(double fx, double fy) {
    if (!isRaw16() || !(fx > 0) || !(fy > 0)) return;
    double w = width_ * fx, h = height_ * fy;
    if (w >= kFarthest || h >= kFarthest) return;
    int width = static_cast<int>(w), height = static_cast<int>(h);
    if (__get_data_size(width, height, bpp_) == 0) return;
    std::vector<int> columns = steps(width, width_, fx), rows = steps(height, height_, fy);
    replacePlanes(picked<std::uint16_t>(data_, width_, columns, rows),
                  picked<char>(channels_[3], width_, columns, rows));
    width_ = width;
    height_ = height;
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width, height, bpp_);
    if (channels_[3]) channelSizes_[3] = width * height;
}

void CGraphicsObject::Scale2x() { Scale(0.5, 0.5); }

void CGraphicsObject::ToGrayScale() {
    if (!isRaw16()) return;
    bool is15 = bpp_ == 15;
    for (std::uint16_t *p = words(), *end = p + count(); p != end; p++) {
        int b = *p & 31;
        if (is15) {
            int v = (b + (*p >> 5 & 31) + (*p >> 10 & 31)) / 3;
            *p = static_cast<std::uint16_t>(v | v << 5 | v << 10);
        } else {
            int v = (b + (*p >> 6 & 31) + (*p >> 11)) / 3;
            *p = static_cast<std::uint16_t>(v | v << 6 | v << 11);
        }
    }
}

void CGraphicsObject::InvertColors() {
    if (!isRaw16() || bpp_ != 15) return;
    for (std::uint16_t *p = words(), *end = p + count(); p != end; p++)
        *p = static_cast<std::uint16_t>(*p ^ 0x7FFF);
}

void CGraphicsObject::outline(const CColor & colour, int thickness) {
    if (!isRaw16() || !channels_[3]) return;
    auto word = static_cast<std::uint16_t>(colour.GetInBPP(bpp_));
    auto set = [&](CXRect r) {
        for (int y = r.top; y < r.bottom; y++) {
            std::ptrdiff_t at = static_cast<std::ptrdiff_t>(y) * width_ + r.left;
            std::fill_n(words() + at, r.Width(), word);
            std::fill_n(alphaBytes() + at, r.Width(), static_cast<unsigned char>(255));
        }
    };
    int across = limited(thickness, 0, width_), down = limited(thickness, 0, height_);
    set({0, 0, width_, down});
    set({0, height_ - down, width_, height_});
    set({0, 0, across, height_});
    set({width_ - across, 0, width_, height_});
}

void CGraphicsObject::displacementFilter(const CXPoint * map, bool withAlpha, bool freeOld) {
    if (!isRaw16() || !map) return;
    auto pixels = static_cast<std::size_t>(count());
    char * colour = new char[pixels * 2];
    displaced<std::uint16_t>(colour, data_, map, width_, height_);
    char * alpha = channels_[3];
    if (withAlpha && alpha) {
        alpha = new char[pixels];
        displaced<char>(alpha, channels_[3], map, width_, height_);
    }
    if (!freeOld && ownsPixels_) { // the caller holds on to the old planes
        data_ = colour;
        channels_[3] = alpha;
        return;
    }
    replacePlanes(colour, alpha);
}
