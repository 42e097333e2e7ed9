// Single pixels, whole planes of one colour, and the step from one depth to another.

#include "files/CRLECompression.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <cstring>
#include <memory>

unsigned char CGraphicsObject::GetPixel(_channel channel, CXPoint p) {
    if (p.x < 0 || p.y < 0 || p.x >= width_ || p.y >= height_) return 0;
    int c = channel == kChannelAlpha ? 3 : channel;
    if (c < 0 || c > 3 || !channels_[c]) return 0;
    std::ptrdiff_t i = static_cast<std::ptrdiff_t>(p.y) * width_ + p.x;
    if (c == 3 && compression_ == kCompressionRle) {
        std::unique_ptr<char[]> raw(
            CRLECompression::__decompresschar(channels_[3], channelSizes_[3], width_ * height_));
        return raw ? static_cast<unsigned char>(raw[static_cast<std::size_t>(i)]) : 0;
    }
    if (c == 3 && compression_ != kCompressionNone) return 0;
    return static_cast<unsigned char>(channels_[c][i]);
}

CColor CGraphicsObject::GetPixel(CXPoint p) { return GetPixel(p.x, p.y); }

CColor CGraphicsObject::GetPixel(int x, int y) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_ || !data_ || compression_ != kCompressionNone)
        return {};
    std::ptrdiff_t i = static_cast<std::ptrdiff_t>(y) * width_ + x;
    switch (bpp_) {
    case 15: {
        int v = words()[i];
        return {(v >> 10 & 31) << 3, (v >> 5 & 31) << 3, (v & 31) << 3};
    }
    case 16: {
        int v = words()[i];
        return {(v >> 11) << 3, (v >> 5 & 63) << 2, (v & 31) << 3};
    }
    case 24: {
        const auto * p = reinterpret_cast<const unsigned char *>(data_) + i * 3;
        return {p[2], p[1], p[0]};
    }
    default: return {};
    }
}

void CGraphicsObject::SetPixel(int x, int y, const CColor & colour) {
    if (!isRaw16() || x < 0 || y < 0 || x >= width_ || y >= height_) return;
    words()[static_cast<std::ptrdiff_t>(y) * width_ + x] = static_cast<std::uint16_t>(colour.GetInBPP(bpp_));
}

void CGraphicsObject::putPixel(int x, int y, short colour, int alpha, bool ignoreBackground) {
    if (bpp_ == 15) putPixel15(x, y, colour, alpha, ignoreBackground);
    if (bpp_ == 16) putPixel16(x, y, colour, alpha, ignoreBackground);
}

namespace {

// Channels of a word: blue at bit 0, then green and red.
template <int kGreenBits>
std::uint16_t mixed(int s, int d, int alpha) {
    auto channel = [&](int shift, int mask) {
        int v = ((s >> shift & mask) * alpha >> 8) + ((d >> shift & mask) * (255 - alpha) >> 8);
        return (v & mask) << shift;
    };
    return static_cast<std::uint16_t>(channel(0, 31) | channel(5, (1 << kGreenBits) - 1) |
                                      channel(5 + kGreenBits, 31));
}

} // namespace

void CGraphicsObject::putPixel15(int x, int y, short colour, int alpha, bool ignoreBackground) {
    std::int64_t i = std::int64_t{y} * pitch_ + x;
    if (!isRaw16() || x < 0 || i < 0 || i >= count()) return;
    std::uint16_t & d = words()[i];
    d = mixed<5>(static_cast<std::uint16_t>(colour), ignoreBackground ? 0 : d, limited(alpha, 0, 255));
}

void CGraphicsObject::putPixel16(int x, int y, short colour, int alpha, bool ignoreBackground) {
    std::int64_t i = std::int64_t{y} * pitch_ + x;
    if (!isRaw16() || x < 0 || i < 0 || i >= count()) return;
    std::uint16_t & d = words()[i];
    d = mixed<6>(static_cast<std::uint16_t>(colour), ignoreBackground ? 0 : d, limited(alpha, 0, 255));
}

void CGraphicsObject::Fill(CColor * colour) {
    if (!data_ || compression_ != kCompressionNone || count() <= 0) return;
    int value = colour->GetInBPP(bpp_);
    if (bpp_ == 15 || bpp_ == 16) std::fill_n(words(), count(), static_cast<std::uint16_t>(value));
    if (bpp_ == 32)
        std::fill_n(reinterpret_cast<std::uint32_t *>(data_), count(), static_cast<std::uint32_t>(value));
}

void CGraphicsObject::Fill(CXRect rect, CColor * colour) {
    CXRect r = rect.Common({0, 0, width_, height_});
    if (!isRaw16() || r.IsEmpty()) return;
    auto value = static_cast<std::uint16_t>(colour->GetInBPP(bpp_));
    for (int y = r.top; y < r.bottom; y++)
        std::fill_n(words() + static_cast<std::ptrdiff_t>(y) * width_ + r.left, r.Width(), value);
}

// ---- depths: two pixels a step, so that the last one of an odd number stays

namespace {

template <class Step>
void eachPair(char * data, int width, int height, Step && step) {
    std::ptrdiff_t pairs = static_cast<std::ptrdiff_t>(width) * height / 2;
    for (std::ptrdiff_t i = 0; i < pairs; i++) {
        std::uint32_t v;
        std::memcpy(&v, data + i * 4, 4);
        v = step(v);
        std::memcpy(data + i * 4, &v, 4);
    }
}

} // namespace

void CGraphicsObject::_convert15to16(char * data, int width, int height) {
    eachPair(data, width, height, [](std::uint32_t v) { return (v & 0x001F001F) | (v & 0x7FE07FE0) << 1; });
}

void CGraphicsObject::_convert16to15(char * data, int width, int height) {
    eachPair(data, width, height, [](std::uint32_t v) { return (v & 0x001F001F) | (v & 0xFFC0FFC0) >> 1; });
}

void CGraphicsObject::_convert32to15(char * data, int width, int height) {
    _convert16to15(data, width, height);
}

char * CGraphicsObject::_convert32to16(const char * data, int width, int height) {
    int bytes = __get_data_size(width, height, 16);
    if (bytes == 0) return nullptr;
    char * plane = new char[static_cast<std::size_t>(bytes)];
    const auto * from = reinterpret_cast<const unsigned char *>(data);
    auto * to = reinterpret_cast<std::uint16_t *>(plane);
    for (int i = 0; i < bytes / 2; i++, from += 3)
        to[i] = static_cast<std::uint16_t>(((from[0] & 0xF8) << 5 | (from[1] & 0xFC)) << 3 | from[2] >> 3);
    return plane;
}
