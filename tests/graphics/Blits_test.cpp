#include "graphics/blits/Kernels.h"

#include "Picture.h"
#include "graphics/CSurface.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

// The plain loops are held to the arithmetic as it is told, over the engine's own tables; the vector forms
// are held to the plain ones.

namespace {

using blits::Kernels;
using test::Bytes;
using test::Words;
using Wides = std::vector<std::uint32_t>;

const struct {
    const char * name;
    blits::Loop Kernels::*loop;
    bool wide, byOpacity;
} kLoops[] = {
    {"copy16", &Kernels::copy16, false, false},
    {"copy32", &Kernels::copy32, true, false},
    {"alpha15", &Kernels::alpha15, false, false},
    {"alpha16", &Kernels::alpha16, false, false},
    {"alpha32", &Kernels::alpha32, true, false},
    {"blend15", &Kernels::blend15, false, true},
    {"blend16", &Kernels::blend16, false, true},
    {"blend32", &Kernels::blend32, true, true},
    {"alphaBlend15", &Kernels::alphaBlend15, false, true},
    {"alphaBlend16", &Kernels::alphaBlend16, false, true},
    {"alphaBlend32", &Kernels::alphaBlend32, true, true},
    {"mask16", &Kernels::mask16, false, false},
    {"mask32", &Kernels::mask32, true, false},
    {"canvas15", &Kernels::canvas15, false, false},
    {"canvas16", &Kernels::canvas16, false, false},
};

// A source, its alpha, and targets of both widths; rows of a stride wider than the picture.
struct Scene {
    int width, height, stride, first;
    Words source, target;
    Bytes alpha, targetAlpha;
    Wides wide;

    Scene(int width, int height, int beside = 0, int first = 0)
        : width(width), height(height), stride(width + beside), first(first) {
        auto n = static_cast<std::size_t>(stride * height + first);
        source.resize(n);
        target.resize(n);
        alpha.resize(n);
        targetAlpha.resize(n);
        wide.resize(n);
    }
    bool operator==(const Scene &) const = default;

    void draw(blits::Loop loop, bool toWide, int opacity) {
        blits::Job job;
        job.source = source.data() + first;
        job.alpha = alpha.data() + first;
        job.sourceStride = job.targetStride = stride;
        job.target = toWide ? reinterpret_cast<char *>(wide.data() + first)
                            : reinterpret_cast<char *>(target.data() + first);
        job.targetAlpha = targetAlpha.data() + first;
        job.width = width;
        job.height = height;
        job.opacity = opacity;
        loop(job);
    }
};

// Every value of source, target and alpha of a channel: 4096 pairs in a row, a row for each alpha. The
// channels run through theirs in different orders.
Scene everyValue(bool turned) {
    Scene s(4096, 256);
    for (int a = 0; a < 256; a++)
        for (int i = 0; i < 4096; i++) {
            auto at = static_cast<std::size_t>(a * 4096 + i);
            int x = i & 63, y = i >> 6;
            int source = x << 5 | (turned ? y & 31 : x >> 1) | (turned ? x >> 1 : x & 31) << 11;
            int target = y << 5 | (turned ? x & 31 : y & 31) | (turned ? y & 31 : y >> 1) << 11;
            s.source[at] = static_cast<std::uint16_t>(source);
            s.target[at] = static_cast<std::uint16_t>(target);
            s.alpha[at] = static_cast<std::uint8_t>(a);
            s.targetAlpha[at] = static_cast<std::uint8_t>(i * 5 >> 4);
            s.wide[at] = static_cast<std::uint32_t>((target >> 11) << 19 | (y << 2) << 8 |
                                                    (target & 31) << 3 | 0x02010003 * (i & 1));
        }
    return s;
}

Scene random(std::mt19937 & r, int kind) {
    Scene s(1 + static_cast<int>(r() % 70), 1 + static_cast<int>(r() % 6), static_cast<int>(r() % 9),
            static_cast<int>(r() % 9));
    auto value = [&] { // clear and solid stretches, as sprites have them
        int k = static_cast<int>(r() % 10);
        return static_cast<std::uint8_t>(kind == 0 ? r() : k < 5 ? 0 : k < 9 ? 255 : r());
    };
    for (std::size_t i = 0; i < s.source.size(); i++) {
        s.source[i] = static_cast<std::uint16_t>(r());
        s.target[i] = static_cast<std::uint16_t>(r());
        s.alpha[i] = kind == 2 ? static_cast<std::uint8_t>(i / 20 % 2 ? 255 : 0) : value();
        s.targetAlpha[i] = value();
        s.wide[i] = static_cast<std::uint32_t>(r());
    }
    return s;
}

// One pixel, by the tables that are an interface.
int mixedByTable(int s, int d, int a) {
    return static_cast<std::uint16_t>(CGraphicsObject::__get_mul_array()[(s - d + 256) * 256 + a] +
                                      (d << 8)) >>
           8;
}

struct Channels {
    int green, redAt;
    int operator()(int s, int d, int a, int step) const {
        auto one = [&](int at, int most) {
            return std::min(mixedByTable(s >> at & most, d >> at & most, a) + step, most) << at;
        };
        return one(0, 31) | one(5, green) | one(redAt, 31);
    }
};
const Channels k15{31, 10}, k16{63, 11};

std::uint32_t mixedWide(int s, std::uint32_t D, int a) {
    if (a == 0) return D;
    if (a > 254) return CSurface::bpp_cnv_table[s];
    auto d = static_cast<int>(D & 0xFFFFFF);
    int b = mixedByTable(s & 31, (d & 0xFF) >> 3, a),
        g = mixedByTable((s & 0x7E0) >> 6, (d & 0xFF00) >> 11, a),
        r = mixedByTable(s >> 11, (d & 0xFF0000) >> 19, a);
    return CSurface::bpp_cnv_table[b | g << 6 | r << 11];
}

class Blits : public ::testing::Test {
protected:
    Blits() {
        CGraphicsObject::__initialize_mul_array();
        CSurface::prepareBppConversionTable(32);
    }
};

} // namespace

TEST_F(Blits, PlainLoopsFollowTheTables) {
    const Scene before = everyValue(true);
    int opacity = 255;
    auto hold = [&](const char * name, auto && expected) {
        const auto * row = std::find_if(std::begin(kLoops), std::end(kLoops),
                                        [&](const auto & each) { return std::string(each.name) == name; });
        if (opacity != 255 && !row->byOpacity) return;
        Scene after = before;
        after.draw(blits::kPlain.*row->loop, row->wide, opacity);
        for (std::size_t i = 0; i < before.source.size(); i++) {
            std::uint32_t is = row->wide ? after.wide[i] : after.target[i];
            auto wanted = static_cast<std::uint32_t>(
                expected(before.source[i], row->wide ? before.wide[i] : before.target[i], before.alpha[i]));
            if (is == wanted) continue;
            FAIL() << name << " of " << before.source[i] << ", alpha " << int(before.alpha[i]) << ", opacity "
                   << opacity << ": " << is << ", not " << wanted;
        }
    };
    auto weight = [&opacity](int a) { return a * opacity <= 255 ? 0 : a * opacity >> 8; };
    for (int each : {0, 150, 255}) {
        opacity = each;
        for (const Channels * mix : {&k15, &k16}) {
            hold(mix == &k15 ? "alpha15" : "alpha16", [&](int s, std::uint32_t d, int a) {
                return a == 0 ? int(d) : a == 255 ? s : (*mix)(s, int(d), a, 1);
            });
            hold(mix == &k15 ? "blend15" : "blend16", [&](int s, std::uint32_t d, int) {
                return opacity == 0 ? int(d) : (*mix)(s, int(d), opacity, 0);
            });
            hold(mix == &k15 ? "alphaBlend15" : "alphaBlend16", [&](int s, std::uint32_t d, int a) {
                return weight(a) == 0 ? int(d) : (*mix)(s, int(d), weight(a), 0);
            });
        }
        hold("alpha32", [](int s, std::uint32_t d, int a) { return mixedWide(s, d, a); });
        hold("blend32", [&](int s, std::uint32_t d, int) { return mixedWide(s, d, opacity); });
        hold("alphaBlend32", [&](int s, std::uint32_t d, int a) { return mixedWide(s, d, weight(a)); });
        hold("copy32", [](int s, std::uint32_t, int) { return CSurface::bpp_cnv_table[s]; });
        hold("mask16", [](int s, std::uint32_t d, int a) { return a ? s : int(d); });
    }
}

TEST_F(Blits, VectorLoopsEqualThePlainOnes) {
    std::mt19937 r(1);
    auto same = [](const Scene & before, const auto & row, int opacity) {
        Scene plain = before;
        plain.draw(blits::kPlain.*row.loop, row.wide, opacity);
        for (const Kernels * kernels : blits::all()) {
            if (kernels == &blits::kPlain) continue;
            Scene fast = before;
            fast.draw(kernels->*row.loop, row.wide, opacity);
            ASSERT_TRUE(plain == fast) << kernels->name << " " << row.name << ", opacity " << opacity << ", "
                                       << before.width << " x " << before.height;
        }
    };
    for (bool turned : {false, true}) {
        const Scene every = everyValue(turned);
        for (const auto & row : kLoops)
            for (int opacity : {255, 150, 1})
                if (opacity == 255 || row.byOpacity) same(every, row, opacity);
    }
    const Scene small = random(r, 0);
    for (const auto & row : kLoops)
        for (int opacity = 0; opacity < 256 && row.byOpacity; opacity++) same(small, row, opacity);
    for (int i = 0; i < 500; i++) {
        const Scene scene = random(r, i % 3);
        for (const auto & row : kLoops) same(scene, row, static_cast<int>(r() % 256));
    }
}

TEST_F(Blits, EndsOfTheScale) {
    // alpha 254 over an equal pixel gives one more in each channel that has room; t = 255 is skipped
    struct {
        const char * what;
        blits::Loop Kernels::*loop;
        int source, target, alpha, opacity, expected;
    } const cases[] = {
        {"254 over itself", &Kernels::alpha16, 0x8410, 0x8410, 254, 255, 0x8C31},
        {"254 at the maximum", &Kernels::alpha16, 0xFFFF, 0xFFFF, 254, 255, 0xFFFF},
        {"254 over itself, 15 bits", &Kernels::alpha15, 0x4210, 0x4210, 254, 255, 0x4631},
        {"t is 255", &Kernels::alphaBlend16, 0xFFFF, 0, 1, 255, 0},
        {"t is 64770", &Kernels::alphaBlend16, 0xFFFF, 0, 255, 254, 30 << 11 | 62 << 5 | 30},
    };
    for (const Kernels * kernels : blits::all())
        for (const auto & c : cases) {
            Scene s(1, 1);
            s.source[0] = static_cast<std::uint16_t>(c.source);
            s.target[0] = static_cast<std::uint16_t>(c.target);
            s.alpha[0] = static_cast<std::uint8_t>(c.alpha);
            s.draw(kernels->*c.loop, false, c.opacity);
            EXPECT_EQ(s.target[0], c.expected) << kernels->name << ": " << c.what;
        }
}

TEST_F(Blits, DepthsChooseTheMember) {
    Words pixels(4, 0x1234);
    Wides wide(4, 0x55);
    Bytes alpha(4, 255);
    auto of = [&](int depth, void * data, bool withAlpha) {
        _canvas c;
        c.data = static_cast<char *>(data);
        c.alpha = withAlpha ? reinterpret_cast<char *>(alpha.data()) : nullptr;
        c.bpp = depth;
        c.width = c.height = 2;
        return c;
    };
    for (int source : {8, 15, 16, 24, 32})
        for (int target : {8, 15, 16, 24, 32})
            for (bool withAlpha : {false, true}) {
                Words before = pixels;
                std::fill(wide.begin(), wide.end(), 0x55);
                bool words = source == 15 || source == 16, wider = target == 24 || target == 32;
                bool good = words && (source == target || wider);
                _canvas s = of(source, pixels.data(), withAlpha), d = of(target, wide.data(), false);
                EXPECT_EQ(CGraphicsObject::__copy(s, d), good);
                EXPECT_EQ(CGraphicsObject::__copy_blend(s, d, 100), good);
                EXPECT_EQ(CGraphicsObject::__copy_alpha(s, d), good && (withAlpha || target == 24));
                bool drawn = good && target != 24;
                EXPECT_EQ(wide != Wides(4, 0x55), drawn) << source << " onto " << target;
            }
    _canvas none = of(16, nullptr, false), d = of(16, wide.data(), false);
    EXPECT_FALSE(CGraphicsObject::__copy_bpp15_16(none, d));
    none = of(16, pixels.data(), false);
    none.width = none.height = 0;
    EXPECT_FALSE(CGraphicsObject::__copy_bpp15_16(none, d));
    EXPECT_TRUE(CGraphicsObject::__copy_alpha24(none, d));
}
