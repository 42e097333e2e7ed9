// The blit family: where a source's pixels come to lie, and which loop draws them.

#include "graphics/CGraphicsObject.h"
#include "graphics/blits/Kernels.h"

#include <algorithm>
#include <cstring>
#include <memory>

// ---- the multiplication table, an interface; the loops multiply, which is faster than looking it up

namespace {

std::unique_ptr<std::uint16_t[]> products;

}

void CGraphicsObject::__initialize_mul_array() {
    if (products) return;
    products = std::make_unique<std::uint16_t[]>(std::size_t{512} * 256);
    for (int k = -256; k < 256; k++)
        for (int a = 0; a < 256; a++) products[(k + 256) * 256 + a] = static_cast<std::uint16_t>(k * a);
}

std::uint16_t * CGraphicsObject::__get_mul_array() { return products.get(); }

void CGraphicsObject::__done_mul_array() { products.reset(); }

namespace {

// The part of the source that is drawn, and where; all numbers in pixels.
struct Cut {
    std::int64_t first = 0; // into the source's planes
    std::int64_t stride = 0;
    std::int64_t x = 0, y = 0; // on the destination
    std::int64_t w = 0, h = 0;

    // Takes away what lies outside of 0..limit along one axis; step: what a place is worth in the source.
    static void clip(std::int64_t & at, std::int64_t & size, std::int64_t limit, std::int64_t & first,
                     std::int64_t step) {
        if (at < 0) {
            size += at;
            first -= at * step;
            at = 0;
        }
        size = std::min(size, limit - at);
    }
};

bool isSet(const CXRect & r) { return r.right != r.left && r.bottom != r.top; }

// False when the records are no good. A cut that lies outside comes out without an area.
bool cutOf(const _canvas & s, const _canvas & d, Cut & c) {
    if (!s.data || !d.data) return false;
    c.w = s.width;
    c.h = s.height;
    std::int64_t skip = 0;
    c.x = s.x;
    c.y = s.y;
    std::int64_t column = 0, row = 0; // of the first pixel, while one rectangle alone is set
    if (isSet(s.rect)) {
        c.first = std::int64_t{s.rect.top} * s.width + s.rect.left;
        column = s.rect.left;
        row = s.rect.top;
        c.x += s.rect.left;
        c.y += s.rect.top;
        c.w = std::int64_t{s.rect.right} - s.rect.left;
        c.h = std::int64_t{s.rect.bottom} - s.rect.top;
        skip = s.width - c.w;
    }
    if (isSet(d.rect)) {
        c.first += d.rect.top * c.w + d.rect.left;
        column += d.rect.left;
        row += d.rect.top;
        c.w = std::int64_t{d.rect.right} - d.rect.left;
        c.h = std::int64_t{d.rect.bottom} - d.rect.top;
        skip += s.width - c.w;
    }
    if (c.w < 0 || c.h < 0) return false;
    c.stride = c.w + skip;
    if (c.stride == s.width) { // rows of the source: what lies beside them isn't drawn
        std::int64_t x = column, y = row;
        Cut::clip(column, c.w, s.width, c.first, 1);
        Cut::clip(row, c.h, s.height, c.first, s.width);
        c.x += column - x;
        c.y += row - y;
    }
    Cut::clip(c.x, c.w, d.width, c.first, 1);
    Cut::clip(c.y, c.h, d.height, c.first, c.stride);
    if (c.w <= 0 || c.h <= 0) {
        c.w = c.h = 0;
        return true;
    }
    std::int64_t last = c.first + (c.h - 1) * c.stride + c.w;
    return c.stride >= c.w && c.first >= 0 && last <= std::int64_t{s.width} * s.height;
}

bool draw(const _canvas & s, const _canvas & d, blits::Loop loop, bool withAlpha, int opacity = 255) {
    Cut c;
    if (!cutOf(s, d, c) || (withAlpha && !s.alpha) || opacity < 0 || opacity > 255) return false;
    if (c.w == 0) return true;
    std::int64_t at = c.y * d.width + c.x;
    blits::Job job;
    job.source = reinterpret_cast<const std::uint16_t *>(s.data) + c.first;
    if (withAlpha) job.alpha = reinterpret_cast<const std::uint8_t *>(s.alpha) + c.first;
    job.sourceStride = c.stride;
    job.target = d.data + at * CGraphicsObject::__get_pixel_size(d.bpp);
    if (d.alpha) job.targetAlpha = reinterpret_cast<std::uint8_t *>(d.alpha) + at;
    job.targetStride = d.width;
    job.width = static_cast<int>(c.w);
    job.height = static_cast<int>(c.h);
    job.opacity = opacity;
    loop(job);
    return true;
}

bool isWords(int depth) { return depth == 15 || depth == 16; }

// Whether words lie on both sides, so that one loop serves either depth.
bool wordsOnto(const _canvas & s, const _canvas & d, bool wide) {
    return isWords(s.bpp) && (wide ? d.bpp == 32 : isWords(d.bpp));
}

// One row of the table by which the depths choose the loop.
using CopyForm = bool (*)(const _canvas &, const _canvas &);
using BlendForm = bool (*)(const _canvas &, const _canvas &, int);

template <class Loop>
Loop forDepths(const _canvas & s, const _canvas & d, Loop on15, Loop on16, Loop on24, Loop on32) {
    if (!isWords(s.bpp)) return nullptr;
    if (d.bpp == 24) return on24;
    if (d.bpp == 32) return on32;
    return s.bpp != d.bpp ? nullptr : s.bpp == 15 ? on15 : on16;
}

} // namespace

// ---- by depth

bool CGraphicsObject::__copy(const _canvas & s, const _canvas & d) {
    CopyForm loop = forDepths<CopyForm>(s, d, __copy_bpp15_16, __copy_bpp15_16, __copy_bpp24, __copy_bpp32);
    return loop && loop(s, d);
}

bool CGraphicsObject::__copy_alpha(const _canvas & s, const _canvas & d) {
    CopyForm loop = forDepths<CopyForm>(s, d, __copy_alpha15, __copy_alpha16, __copy_alpha24, __copy_alpha32);
    return loop && loop(s, d);
}

bool CGraphicsObject::__copy_blend(const _canvas & s, const _canvas & d, int opacity) {
    BlendForm loop =
        s.alpha ? forDepths<BlendForm>(s, d, __copy_alpha_blend15, __copy_alpha_blend16, __copy_alpha_blend24,
                                       __copy_alpha_blend32)
                : forDepths<BlendForm>(s, d, __copy_blend15, __copy_blend16, __copy_blend24, __copy_blend32);
    return loop && loop(s, d, opacity);
}

// ---- the members

bool CGraphicsObject::__copy_bpp15_16(const _canvas & s, const _canvas & d) {
    if (s.width == 0 && s.height == 0) return false;
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().copy16, false);
}

bool CGraphicsObject::__copy_bpp32(const _canvas & s, const _canvas & d) {
    return wordsOnto(s, d, true) && draw(s, d, blits::inUse().copy32, false);
}

bool CGraphicsObject::__copy_alpha15(const _canvas & s, const _canvas & d) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().alpha15, true);
}

bool CGraphicsObject::__copy_alpha16(const _canvas & s, const _canvas & d) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().alpha16, true);
}

bool CGraphicsObject::__copy_alpha32(const _canvas & s, const _canvas & d) {
    return wordsOnto(s, d, true) && draw(s, d, blits::inUse().alpha32, true);
}

bool CGraphicsObject::__copy_blend15(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().blend15, false, opacity);
}

bool CGraphicsObject::__copy_blend16(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().blend16, false, opacity);
}

bool CGraphicsObject::__copy_blend32(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, true) && draw(s, d, blits::inUse().blend32, false, opacity);
}

bool CGraphicsObject::__copy_alpha_blend15(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().alphaBlend15, true, opacity);
}

bool CGraphicsObject::__copy_alpha_blend16(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().alphaBlend16, true, opacity);
}

bool CGraphicsObject::__copy_alpha_blend32(const _canvas & s, const _canvas & d, int opacity) {
    return wordsOnto(s, d, true) && draw(s, d, blits::inUse().alphaBlend32, true, opacity);
}

bool CGraphicsObject::__copy_alpha_as_mask(const _canvas & s, const _canvas & d) {
    if (d.bpp == 32) return wordsOnto(s, d, true) && draw(s, d, blits::inUse().mask32, true);
    return wordsOnto(s, d, false) && draw(s, d, blits::inUse().mask16, true);
}

// No display of that depth is in use.
bool CGraphicsObject::__copy_bpp24(const _canvas &, const _canvas &) { return true; }
bool CGraphicsObject::__copy_alpha24(const _canvas &, const _canvas &) { return true; }
bool CGraphicsObject::__copy_blend24(const _canvas &, const _canvas &, int) { return true; }
bool CGraphicsObject::__copy_alpha_blend24(const _canvas &, const _canvas &, int) { return true; }

bool CGraphicsObject::copyToCanvas(const _canvas & s, const _canvas & d) {
    if (!wordsOnto(s, d, false) || !d.alpha) return false;
    if (s.alpha) return draw(s, d, s.bpp == 15 ? blits::inUse().canvas15 : blits::inUse().canvas16, true);
    return draw(
        s, d,
        [](const blits::Job & job) {
            blits::inUse().copy16(job);
            for (int y = 0; y < job.height; y++)
                std::memset(job.targetAlpha + job.targetStride * y, 255, static_cast<std::size_t>(job.width));
        },
        false);
}
