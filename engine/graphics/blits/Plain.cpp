// The blit family one pixel after the other: the definition of its arithmetic.

#include "graphics/blits/Kernels.h"

#include <algorithm>
#include <cstring>

namespace blits {

namespace {

// The way from d to s by a weight of a 256th, rounded down.
inline int mixed(int s, int d, int a) { return ((s - d) * a + (d << 8)) >> 8; }

// kStep: a step is added to each channel, up to its maximum. The look has it so: a half-transparent pixel
// over its own colour gets one step lighter.
template <int kGreenBits, bool kStep>
inline std::uint16_t mixedWord(int s, int d, int a) {
    constexpr int kGreen = (1 << kGreenBits) - 1, kRedAt = 5 + kGreenBits;
    int b = mixed(s & 31, d & 31, a);
    int g = mixed(s >> 5 & kGreen, d >> 5 & kGreen, a);
    int r = mixed(s >> kRedAt & 31, d >> kRedAt & 31, a);
    if (kStep) {
        b = std::min(b + 1, 31);
        g = std::min(g + 1, kGreen);
        r = std::min(r + 1, 31);
    }
    return static_cast<std::uint16_t>(b | g << 5 | r << kRedAt);
}

inline std::uint32_t widened(std::uint32_t v) {
    return (v & 0xF800) << 8 | (v & 0x07E0) << 5 | (v & 0x001F) << 3;
}

// Five bits of each channel count.
inline std::uint32_t mixedWide(int s, std::uint32_t target, int a) {
    auto d = static_cast<int>(target);
    int b = mixed(s & 31, d >> 3 & 31, a);
    int g = mixed(s >> 6 & 31, d >> 11 & 31, a);
    int r = mixed(s >> 11, d >> 19 & 31, a);
    return widened(static_cast<std::uint32_t>(b | g << 6 | r << 11));
}

// Calls pixel(source, target, alpha) for each; the alpha is a byte of the source's plane.
template <class Target, bool kAlpha, class Pixel>
inline void each(const Job & job, Pixel && pixel) {
    for (int y = 0; y < job.height; y++) {
        const std::uint16_t * s = job.source + job.sourceStride * y;
        const std::uint8_t * a = kAlpha ? job.alpha + job.sourceStride * y : nullptr;
        Target * d = reinterpret_cast<Target *>(job.target) + job.targetStride * y;
        for (int x = 0; x < job.width; x++) pixel(s[x], d[x], kAlpha ? a[x] : 0);
    }
}

void copy16(const Job & job) {
    for (int y = 0; y < job.height; y++)
        std::memmove(job.target + job.targetStride * y * 2, job.source + job.sourceStride * y,
                     static_cast<std::size_t>(job.width) * 2);
}

void copy32(const Job & job) {
    each<std::uint32_t, false>(job, [](std::uint16_t s, std::uint32_t & d, int) { d = widened(s); });
}

template <int kGreenBits>
void alphaWords(const Job & job) {
    each<std::uint16_t, true>(job, [](std::uint16_t s, std::uint16_t & d, int a) {
        if (a == 0) return;
        d = a > 254 ? s : mixedWord<kGreenBits, true>(s, d, a);
    });
}

void alpha32(const Job & job) {
    each<std::uint32_t, true>(job, [](std::uint16_t s, std::uint32_t & d, int a) {
        if (a == 0) return;
        d = a > 254 ? widened(s) : mixedWide(s, d, a);
    });
}

template <int kGreenBits>
void blendWords(const Job & job) {
    int a = job.opacity;
    if (a == 0) return;
    each<std::uint16_t, false>(
        job, [a](std::uint16_t s, std::uint16_t & d, int) { d = mixedWord<kGreenBits, false>(s, d, a); });
}

void blend32(const Job & job) {
    int a = job.opacity;
    if (a == 0) return;
    if (a > 254) return copy32(job);
    each<std::uint32_t, false>(job, [a](std::uint16_t s, std::uint32_t & d, int) { d = mixedWide(s, d, a); });
}

template <int kGreenBits>
void alphaBlendWords(const Job & job) {
    int opacity = job.opacity;
    each<std::uint16_t, true>(job, [opacity](std::uint16_t s, std::uint16_t & d, int a) {
        int t = a * opacity;
        if (t > 255) d = mixedWord<kGreenBits, false>(s, d, t >> 8);
    });
}

void alphaBlend32(const Job & job) {
    int opacity = job.opacity;
    each<std::uint32_t, true>(job, [opacity](std::uint16_t s, std::uint32_t & d, int a) {
        int t = a * opacity;
        if (t > 255) d = mixedWide(s, d, t >> 8);
    });
}

void mask16(const Job & job) {
    each<std::uint16_t, true>(job, [](std::uint16_t s, std::uint16_t & d, int a) {
        if (a != 0) d = s;
    });
}

void mask32(const Job & job) {
    each<std::uint32_t, true>(job, [](std::uint16_t s, std::uint32_t & d, int a) {
        if (a != 0) d = widened(s);
    });
}

template <int kGreenBits>
void canvas(const Job & job) {
    for (int y = 0; y < job.height; y++) {
        const std::uint16_t * s = job.source + job.sourceStride * y;
        const std::uint8_t * a = job.alpha + job.sourceStride * y;
        auto * d = reinterpret_cast<std::uint16_t *>(job.target) + job.targetStride * y;
        std::uint8_t * da = job.targetAlpha + job.targetStride * y;
        for (int x = 0; x < job.width; x++) {
            if (a[x] == 0) continue;
            if (a[x] == 255 || da[x] == 0) {
                d[x] = s[x];
                da[x] = a[x];
            } else {
                d[x] = mixedWord<kGreenBits, true>(s[x], d[x], a[x]);
                da[x] = static_cast<std::uint8_t>(std::min(255, da[x] + a[x]));
            }
        }
    }
}

} // namespace

const Kernels kPlain = {
    "plain",       copy16,        copy32,    alphaWords<5>,      alphaWords<6>,      alpha32,
    blendWords<5>, blendWords<6>, blend32,   alphaBlendWords<5>, alphaBlendWords<6>, alphaBlend32,
    mask16,        mask32,        canvas<5>, canvas<6>};

} // namespace blits
