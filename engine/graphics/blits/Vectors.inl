// The blit family in the compiler's own vectors, sixteen pixels a step. Compiled once for each set of
// instructions, under the name that KERNELS gives. All is local to the file, and nothing of the standard
// library's inline functions is used: the linker could keep a copy that not every processor runs.

#include "graphics/blits/Kernels.h"

#include <cstring>

namespace blits {

namespace {

#define INLINE inline __attribute__((always_inline))

constexpr int kStep = 16; // pixels

typedef std::uint16_t Words __attribute__((vector_size(32)));
typedef std::int16_t Signed __attribute__((vector_size(32)));
typedef std::uint8_t Bytes __attribute__((vector_size(16)));
typedef std::uint32_t Wide __attribute__((vector_size(32))); // eight pixels
typedef std::uint16_t Words8 __attribute__((vector_size(16)));
typedef std::uint8_t Bytes8 __attribute__((vector_size(8)));

template <class Vector>
INLINE Vector load(const void * from) {
    Vector v;
    std::memcpy(&v, from, sizeof v);
    return v;
}

template <class Vector>
INLINE void store(void * to, Vector v) {
    std::memcpy(to, &v, sizeof v);
}

INLINE Words widen(Bytes v) { return __builtin_convertvector(v, Words); }

INLINE bool allClear(Bytes a) {
    std::uint64_t half[2];
    std::memcpy(half, &a, sizeof half);
    return (half[0] | half[1]) == 0;
}

INLINE bool allSolid(Bytes a) {
    std::uint64_t half[2];
    std::memcpy(half, &a, sizeof half);
    return (half[0] & half[1]) == ~std::uint64_t{0};
}

// As signed numbers, which any processor compares in one step; all values are below 0x8000.
INLINE Words least(Words a, Words b) { return (Words)((Signed)a < (Signed)b ? (Signed)a : (Signed)b); }

// ---- words: the sums of a weighting never go below zero, so that a difference may wrap

template <int kGreenBits>
struct Layout {
    static constexpr std::uint16_t kGreen = (1 << kGreenBits) - 1;
    static constexpr int kRedAt = 5 + kGreenBits;

    static INLINE Words blue(Words v) { return v & 31; }
    static INLINE Words green(Words v) { return v >> 5 & kGreen; }
    static INLINE Words red(Words v) {
        if constexpr (kGreenBits == 6) return v >> kRedAt;
        return v >> kRedAt & 31;
    }
    static INLINE Words joined(Words b, Words g, Words r) { return b | g << 5 | r << kRedAt; }
    static INLINE Words weighted(Words s, Words d, Words a) { return ((s - d) * a + (d << 8)) >> 8; }

    static INLINE Words mixed(Words s, Words d, Words a) {
        return joined(weighted(blue(s), blue(d), a), weighted(green(s), green(d), a),
                      weighted(red(s), red(d), a));
    }

    // one: 1 in the lanes whose channels go up by a step.
    static INLINE Words mixedUp(Words s, Words d, Words a, Words one) {
        return joined(least(weighted(blue(s), blue(d), a) + one, Words{} + 31),
                      least(weighted(green(s), green(d), a) + one, Words{} + kGreen),
                      least(weighted(red(s), red(d), a) + one, Words{} + 31));
    }

    // The bit that no channel of a 15-bit word uses stays with the pixel.
    static INLINE Words withSpare(Words mixed, Words kept) {
        if constexpr (kGreenBits == 6) return mixed;
        return mixed | (kept & 0x8000);
    }
};

// One step over kStep pixels. alpha is masked: a pixel that isn't to be drawn has 0.
template <int kGreenBits>
struct Alpha {
    INLINE void operator()(std::uint16_t * d, const std::uint16_t * s, Bytes alpha, std::uint8_t *) const {
        using L = Layout<kGreenBits>;
        if (allClear(alpha)) return;
        Words source = load<Words>(s);
        if (allSolid(alpha)) return store(d, source);
        // Weights of 0 and 256 give the one and the other pixel as they are; others add a step.
        Words a = widen(alpha), target = load<Words>(d), solid = (Words)(a == 255);
        Words weight = a - solid;
        Words v = L::mixedUp(source, target, weight, least(weight & 255, Words{} + 1));
        store(d, L::withSpare(v, (source & solid) | (target & (Words)(a == 0))));
    }
};

template <int kGreenBits>
struct Blend {
    INLINE void operator()(std::uint16_t * d, const std::uint16_t * s, Bytes mask, std::uint8_t *) const {
        Words a = widen(mask) & opacity;
        store(d, Layout<kGreenBits>::mixed(load<Words>(s), load<Words>(d), a));
    }
    Words opacity;
};

template <int kGreenBits>
struct AlphaBlend {
    INLINE void operator()(std::uint16_t * d, const std::uint16_t * s, Bytes alpha, std::uint8_t *) const {
        using L = Layout<kGreenBits>;
        if (allClear(alpha)) return;
        Words a = widen(alpha) * opacity >> 8, target = load<Words>(d);
        store(d, L::withSpare(L::mixed(load<Words>(s), target, a), target & (Words)(a == 0)));
    }
    Words opacity;
};

struct Mask {
    INLINE void operator()(std::uint16_t * d, const std::uint16_t * s, Bytes alpha, std::uint8_t *) const {
        if (allClear(alpha)) return;
        Words some = (Words)(widen(alpha) != 0);
        store(d, (load<Words>(s) & some) | (load<Words>(d) & ~some));
    }
};

template <int kGreenBits>
struct Onto {
    INLINE void operator()(std::uint16_t * d, const std::uint16_t * s, Bytes alpha, std::uint8_t * da) const {
        if (allClear(alpha)) return;
        Words source = load<Words>(s);
        if (allSolid(alpha)) {
            store(d, source);
            return store(da, alpha);
        }
        Words a = widen(alpha), target = load<Words>(d), old = widen(load<Bytes>(da));
        Words clear = (Words)(a == 0), copied = (Words)((a == 255) | (old == 0)) & ~clear;
        Words one = {};
        one = (one + 1) & ~(clear | copied);
        Words v = Layout<kGreenBits>::mixedUp(source, target, a, one);
        store(d, (source & copied) | (target & clear) | (v & ~(clear | copied)));
        Words sum = old + a; // as it is to be for copied pixels too
        sum |= (Words)(sum > 255);
        store(da, __builtin_convertvector(sum & 255, Bytes));
    }
};

// ---- double words

INLINE Wide widened(Wide v) { return (v & 0xF800) << 8 | (v & 0x07E0) << 5 | (v & 0x001F) << 3; }

INLINE Wide words8(const std::uint16_t * from) { return __builtin_convertvector(load<Words8>(from), Wide); }

INLINE Wide bytes8(Bytes from, int half) {
    std::uint64_t halves[2];
    std::memcpy(halves, &from, sizeof halves);
    return __builtin_convertvector(load<Bytes8>(halves + half), Wide);
}

// Five bits of a channel count. Red and blue lie in the two halves of a lane, each with a's weight.
INLINE Wide mixedWide(Wide s, Wide d, Wide a) {
    Words weight = (Words)(a | a << 16);
    Words drb = (Words)(d >> 3 & 0x001F001F), dg = (Words)(d >> 11 & 31);
    Words rb = ((Words)((s & 31) | (s >> 11) << 16) - drb) * weight + (drb << 8);
    Words g = ((Words)(s >> 6 & 31) - dg) * weight + (dg << 8);
    return (Wide)(rb >> 8) << 3 | (Wide)(g >> 8) << 11;
}

struct Copy32 {
    INLINE void operator()(std::uint32_t * d, const std::uint16_t * s, Bytes) const {
        store(d, widened(words8(s)));
        store(d + 8, widened(words8(s + 8)));
    }
};

struct Alpha32 {
    INLINE void operator()(std::uint32_t * d, const std::uint16_t * s, Bytes alpha) const {
        if (allClear(alpha)) return;
        if (allSolid(alpha)) return Copy32()(d, s, alpha);
        for (int half = 0; half < 2; half++, d += 8, s += 8) {
            Wide source = words8(s), target = load<Wide>(d), a = bytes8(alpha, half);
            Wide clear = (Wide)(a == 0), solid = (Wide)(a == 255);
            Wide v = mixedWide(source, target, a);
            store(d, (target & clear) | (widened(source) & solid) | (v & ~(clear | solid)));
        }
    }
};

// A masked pixel was drawn already: a weight of 0 leaves its five bits, and it has no others.
struct Blend32 {
    INLINE void operator()(std::uint32_t * d, const std::uint16_t * s, Bytes mask) const {
        for (int half = 0; half < 2; half++, d += 8, s += 8)
            store(d, mixedWide(words8(s), load<Wide>(d), bytes8(mask, half) & opacity));
    }
    Wide opacity;
};

struct AlphaBlend32 {
    INLINE void operator()(std::uint32_t * d, const std::uint16_t * s, Bytes alpha) const {
        if (allClear(alpha)) return;
        for (int half = 0; half < 2; half++, d += 8, s += 8) {
            Wide target = load<Wide>(d), a = bytes8(alpha, half) * opacity >> 8;
            Wide clear = (Wide)(a == 0);
            store(d, (target & clear) | (mixedWide(words8(s), target, a) & ~clear));
        }
    }
    Wide opacity;
};

struct Mask32 {
    INLINE void operator()(std::uint32_t * d, const std::uint16_t * s, Bytes alpha) const {
        if (allClear(alpha)) return;
        for (int half = 0; half < 2; half++, d += 8, s += 8) {
            Wide some = (Wide)(bytes8(alpha, half) != 0);
            store(d, (widened(words8(s)) & some) | (load<Wide>(d) & ~some));
        }
    }
};

// ---- rows. What is left of one at its end is drawn by a whole step that ends with it, in which the pixels
// already drawn are masked; a row narrower than a step goes through a copy.

alignas(32) constexpr std::uint8_t kTail[2 * kStep] = {0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,
                                                       0,   0,   0,   0,   0,   255, 255, 255, 255, 255, 255,
                                                       255, 255, 255, 255, 255, 255, 255, 255, 255, 255};

template <class Target, class Step>
INLINE void at(const Step & step, Target * d, const std::uint16_t * s, Bytes a, std::uint8_t * da) {
    if constexpr (sizeof(Target) == 2)
        step(d, s, a, da);
    else
        step(d, s, a);
}

template <class Target, class Step>
INLINE void walk(const Job & job, Step step) {
    const int w = job.width;
    for (int y = 0; y < job.height; y++) {
        const std::uint16_t * s = job.source + job.sourceStride * y;
        const std::uint8_t * a = job.alpha ? job.alpha + job.sourceStride * y : nullptr;
        Target * d = reinterpret_cast<Target *>(job.target) + job.targetStride * y;
        std::uint8_t * da = job.targetAlpha ? job.targetAlpha + job.targetStride * y : nullptr;
        if (w < kStep) {
            std::uint16_t source[kStep] = {};
            Target target[kStep] = {};
            std::uint8_t alpha[kStep] = {}, targetAlpha[kStep] = {};
            auto n = static_cast<std::size_t>(w);
            std::memcpy(source, s, n * 2);
            std::memcpy(target, d, n * sizeof(Target));
            a ? std::memcpy(alpha, a, n) : std::memset(alpha, 255, n);
            if (da) std::memcpy(targetAlpha, da, n);
            at(step, target, source, load<Bytes>(alpha), targetAlpha);
            std::memcpy(d, target, n * sizeof(Target));
            if (da) std::memcpy(da, targetAlpha, n);
            continue;
        }
        const Bytes all = ~Bytes{};
        auto onto = [da](int i) { return da ? da + i : da; };
        int x = 0;
        for (; x + kStep <= w; x += kStep) at(step, d + x, s + x, a ? load<Bytes>(a + x) : all, onto(x));
        if (x == w) continue;
        Bytes mask = load<Bytes>(kTail + (w - x));
        x = w - kStep;
        at(step, d + x, s + x, a ? load<Bytes>(a + x) & mask : mask, onto(x));
    }
}

// Steps without an alpha plane are told so, or their loop would ask for each vector.
template <class Target, class Step>
INLINE void walkPlain(Job job, Step step) {
    job.alpha = nullptr;
    walk<Target>(job, step);
}

INLINE Words opacities(int opacity) { return Words{} + static_cast<std::uint16_t>(opacity); }
INLINE Wide wideOpacities(int opacity) { return Wide{} + static_cast<std::uint32_t>(opacity); }

void copy16(const Job & job) { kPlain.copy16(job); }
void copy32(const Job & job) { walkPlain<std::uint32_t>(job, Copy32()); }
template <int kGreenBits>
void alphaWords(const Job & job) {
    walk<std::uint16_t>(job, Alpha<kGreenBits>());
}
void alpha32(const Job & job) { walk<std::uint32_t>(job, Alpha32()); }
template <int kGreenBits>
void blendWords(const Job & job) {
    if (job.opacity != 0) walkPlain<std::uint16_t>(job, Blend<kGreenBits>{opacities(job.opacity)});
}
void blend32(const Job & job) {
    if (job.opacity == 255)
        copy32(job);
    else if (job.opacity != 0)
        walkPlain<std::uint32_t>(job, Blend32{wideOpacities(job.opacity)});
}
template <int kGreenBits>
void alphaBlendWords(const Job & job) {
    walk<std::uint16_t>(job, AlphaBlend<kGreenBits>{opacities(job.opacity)});
}
void alphaBlend32(const Job & job) { walk<std::uint32_t>(job, AlphaBlend32{wideOpacities(job.opacity)}); }
void mask16(const Job & job) { walk<std::uint16_t>(job, Mask()); }
void mask32(const Job & job) { walk<std::uint32_t>(job, Mask32()); }
template <int kGreenBits>
void canvas(const Job & job) {
    walk<std::uint16_t>(job, Onto<kGreenBits>());
}

} // namespace

extern const Kernels KERNELS;
const Kernels KERNELS = {
    KERNELS_NAME,  copy16,        copy32,    alphaWords<5>,      alphaWords<6>,      alpha32,
    blendWords<5>, blendWords<6>, blend32,   alphaBlendWords<5>, alphaBlendWords<6>, alphaBlend32,
    mask16,        mask32,        canvas<5>, canvas<6>};

} // namespace blits
