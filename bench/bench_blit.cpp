// The blits beside what other libraries take for the same pictures, and beside a copy of the rows. Sprite
// alpha is 60% clear, 30% solid, 10% edge in soft discs; iid the same shares at random; uniform any alpha.

#include "Ratio.h"
#include "graphics/CSurface.h"
#include "graphics/blits/Kernels.h"

#include <SDL2/SDL.h>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <pixman.h>
#include <random>

namespace {

constexpr int kWidth = 800, kHeight = 600;

enum class Mix { kSprite, kIid, kUniform };

std::vector<std::uint8_t> alphaOf(int w, int h, Mix mix) {
    std::mt19937 r(7);
    std::vector<std::uint8_t> v;
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++) {
            double dx = x % 64 - 31.5, dy = y % 64 - 31.5, d = std::sqrt(dx * dx + dy * dy);
            unsigned share = r() % 100, any = r() % 256;
            switch (mix) {
            case Mix::kSprite:
                any = d < 19.8 ? 255 : d > 22.8 ? 0 : static_cast<unsigned>(255 - (d - 19.8) * 85);
                break;
            case Mix::kIid: any = share < 60 ? 0 : share < 90 ? 255 : 1 + any % 254; break;
            case Mix::kUniform: break;
            }
            v.push_back(static_cast<std::uint8_t>(any));
        }
    return v;
}

// One picture in all the forms that are drawn, and a screen that takes them. Small ones are drawn at 64
// places.
class Scene {
public:
    Scene(int w, int h, Mix mix)
        : w_(w),
          h_(h),
          alpha_(alphaOf(w, h, mix)),
          screen_(kWidth * kHeight),
          other_(kWidth * kHeight),
          wide_(kWidth * kHeight) {
        std::mt19937 r(3);
        for (std::uint8_t a : alpha_) {
            std::uint32_t v = r() & 0xFFFF;
            words_.push_back(static_cast<std::uint16_t>(v));
            std::uint32_t red = (v >> 11) * 255 / 31, green = (v >> 5 & 63) * 255 / 63,
                          blue = (v & 31) * 255 / 31;
            argb_.push_back(std::uint32_t{a} << 24 | red << 16 | green << 8 | blue);
            ready_.push_back(std::uint32_t{a} << 24 | red * a / 255 << 16 | green * a / 255 << 8 |
                             blue * a / 255);
        }
        for (auto & v : screen_) v = static_cast<std::uint16_t>(r());
        for (auto & v : wide_) v = r() & 0xFFFFFF;
        for (int i = 0; i < (w == kWidth ? 1 : 64); i++)
            places_.push_back(w == kWidth ? SDL_Point{0, 0}
                                          : SDL_Point{static_cast<int>(r() % unsigned(kWidth - w)),
                                                      static_cast<int>(r() % unsigned(kHeight - h))});
        target_ = surface(other_.data(), kWidth, kHeight, 16, SDL_PIXELFORMAT_RGB565, false);
        sprite_ = surface(argb_.data(), w, h, 32, SDL_PIXELFORMAT_ARGB8888, true);
        opaque_ = surface(words_.data(), w, h, 16, SDL_PIXELFORMAT_RGB565, false);
        faded_ = surface(words_.data(), w, h, 16, SDL_PIXELFORMAT_RGB565, true);
        SDL_SetSurfaceAlphaMod(faded_, 150);
        pixmanTarget_ = pixman_image_create_bits(
            PIXMAN_r5g6b5, kWidth, kHeight, reinterpret_cast<std::uint32_t *>(other_.data()), kWidth * 2);
        pixmanSprite_ = pixman_image_create_bits(PIXMAN_a8r8g8b8, w, h, ready_.data(), w * 4);
    }
    Scene(const Scene &) = delete;
    Scene & operator=(const Scene &) = delete;
    ~Scene() {
        for (SDL_Surface * s : {target_, sprite_, opaque_, faded_}) SDL_FreeSurface(s);
        for (pixman_image_t * p : {pixmanTarget_, pixmanSprite_}) pixman_image_unref(p);
    }

    double pixels() const { return double(w_) * h_ * double(places_.size()) / 1000; } // in thousands
    std::function<void()> ours(blits::Loop loop, bool wide = false, int opacity = 255) {
        return [this, loop, wide, opacity] {
            for (SDL_Point at : places_) {
                std::ptrdiff_t first = std::ptrdiff_t{at.y} * kWidth + at.x;
                blits::Job job;
                job.source = words_.data();
                job.alpha = alpha_.data();
                job.sourceStride = w_;
                job.target = wide ? reinterpret_cast<char *>(wide_.data() + first)
                                  : reinterpret_cast<char *>(screen_.data() + first);
                job.targetStride = kWidth;
                job.width = w_;
                job.height = h_;
                job.opacity = opacity;
                loop(job);
            }
        };
    }
    std::function<void()> rows() { return ours(blits::kPlain.copy16); }
    std::function<void()> sdlAlpha() { return sdl(sprite_); }
    std::function<void()> sdlOpaque() { return sdl(opaque_); }
    std::function<void()> sdlFaded() { return sdl(faded_); }
    std::function<void()> pixmanOver() {
        return [this] {
            for (SDL_Point at : places_)
                pixman_image_composite32(PIXMAN_OP_OVER, pixmanSprite_, nullptr, pixmanTarget_, 0, 0, 0, 0,
                                         at.x, at.y, w_, h_);
        };
    }

private:
    static SDL_Surface * surface(void * pixels, int w, int h, int depth, std::uint32_t format, bool blends) {
        SDL_Surface * s = SDL_CreateRGBSurfaceWithFormatFrom(pixels, w, h, depth, w * depth / 8, format);
        SDL_SetSurfaceBlendMode(s, blends ? SDL_BLENDMODE_BLEND : SDL_BLENDMODE_NONE);
        return s;
    }
    std::function<void()> sdl(SDL_Surface * s) {
        return [this, s] {
            for (SDL_Point at : places_) {
                SDL_Rect to{at.x, at.y, 0, 0};
                SDL_UpperBlit(s, nullptr, target_, &to);
            }
        };
    }

    int w_, h_;
    std::vector<std::uint8_t> alpha_;
    std::vector<std::uint16_t> words_, screen_, other_;
    std::vector<std::uint32_t> wide_, argb_, ready_;
    std::vector<SDL_Point> places_;
    SDL_Surface *target_, *sprite_, *opaque_, *faded_;
    pixman_image_t *pixmanTarget_, *pixmanSprite_;
};

// The peer of the widening: a look-up for each pixel.
void tableLoop(const blits::Job & job) {
    const std::uint32_t * table = CSurface::getBppConversionTable();
    for (int y = 0; y < job.height; y++) {
        const std::uint16_t * s = job.source + job.sourceStride * y;
        std::uint32_t * d = reinterpret_cast<std::uint32_t *>(job.target) + job.targetStride * y;
        for (int x = 0; x < job.width; x++) d[x] = table[s[x]];
    }
}

// Goals of 0 aren't asked.
void alpha(const char * title, int w, int h, Mix mix, double sdl, double pixman, double copy, double faded,
           double wide) {
    Scene scene(w, h, mix);
    const blits::Kernels & k = blits::inUse();
    bench::Table t(title);
    double n = scene.pixels();
    auto rows = t.add("rows copied", n, scene.rows());
    auto theirs = t.add("SDL2 ARGB8888 to 565", n, scene.sdlAlpha());
    auto over = t.add("pixman OVER", n, scene.pixmanOver());
    auto plain = t.add("__copy_alpha16, plain", n, scene.ours(blits::kPlain.alpha16));
    auto alpha16 = t.add("__copy_alpha16", n, scene.ours(k.alpha16));
    auto blend16 = t.add("__copy_alpha_blend16", n, scene.ours(k.alphaBlend16, false, 150));
    auto plain32 = t.add("__copy_alpha32, plain", n, scene.ours(blits::kPlain.alpha32, true));
    auto alpha32 = t.add("__copy_alpha32", n, scene.ours(k.alpha32, true));
    t.sample();
    t.ratio(alpha16, theirs, sdl);
    if (pixman > 0) t.ratio(alpha16, over, pixman);
    if (copy > 0) t.ratio(alpha16, rows, copy);
    t.ratio(alpha16, plain, 1);
    if (faded > 0) t.ratio(blend16, theirs, faded);
    if (wide > 0) t.ratio(alpha32, theirs, wide);
    t.ratio(alpha32, plain32, 1);
}

void opaque(const char * title, int w, int h, double copied, double ofRows, double faded, double fadedRows,
            double widened) {
    Scene scene(w, h, Mix::kSprite);
    const blits::Kernels & k = blits::inUse();
    bench::Table t(title);
    double n = scene.pixels();
    auto rows = t.add("rows copied", n, scene.rows());
    auto theirs = t.add("SDL2 565 to 565", n, scene.sdlOpaque());
    auto theirsFaded = t.add("SDL2 565 to 565, surface alpha", n, scene.sdlFaded());
    auto copy16 = t.add("__copy_bpp15_16", n, scene.ours(k.copy16));
    auto blend16 = t.add("__copy_blend16", n, scene.ours(k.blend16, false, 150));
    auto plain32 = t.add("__copy_bpp32, table", n, scene.ours(tableLoop, true));
    auto copy32 = t.add("__copy_bpp32", n, scene.ours(k.copy32, true));
    t.sample();
    t.ratio(copy16, theirs, copied);
    t.ratio(copy16, rows, ofRows);
    t.ratio(blend16, theirsFaded, faded);
    t.ratio(blend16, rows, fadedRows);
    t.ratio(copy32, plain32, widened);
}

} // namespace

int main() {
    CSurface::prepareBppConversionTable(32);
    std::printf("drawn by: %s; times are of 1000 pixels\n", blits::inUse().name);
    alpha("800x600, sprite alpha", 800, 600, Mix::kSprite, 3.2, 5, 0.30, 3.4, 2);
    alpha("800x600, iid alpha", 800, 600, Mix::kIid, 9, 2.6, 0, 0, 0);
    alpha("800x600, uniform alpha", 800, 600, Mix::kUniform, 4.5, 2.6, 0, 6.5, 1.9);
    alpha("64x64, sprite alpha", 64, 64, Mix::kSprite, 2.7, 0, 0.36, 0, 0);
    opaque("800x600, opaque", 800, 600, 1, 0.8, 2.4, 0.28, 3.5);
    opaque("64x64, opaque", 64, 64, 1, 0.8, 1.8, 0, 3.5);
    return 0;
}
