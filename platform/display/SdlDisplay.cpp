#include "platform/display/SdlDisplay.h"

#include <SDL2/SDL.h>
#include <algorithm>
#include <cstdint>

namespace platform {

namespace {

// A new window takes at most so much of the screen.
constexpr double kScreenShare = 0.9;

// The top bits are repeated below, so that white stays white: as in a file of the picture.
std::uint32_t widened(std::uint32_t v, int bits) { return v << (8 - bits) | v >> (2 * bits - 8); }

template <int GreenBits>
void convert(const std::uint16_t * from, std::uint32_t * to, int count) {
    for (int i = 0; i < count; i++) {
        std::uint32_t v = from[i], green = v >> 5 & ((1U << GreenBits) - 1);
        to[i] = 0xFF000000 | widened(v >> (5 + GreenBits) & 31, 5) << 16 | widened(green, GreenBits) << 8 |
                widened(v & 31, 5);
    }
}

// A size of the picture's shape for a new window: whole steps that leave room round it.
SDL_Point roomFor(int width, int height) {
    SDL_Rect screen;
    if (SDL_GetDisplayUsableBounds(0, &screen) != 0) return {width, height};
    double fits = std::min(screen.w * kScreenShare / width, screen.h * kScreenShare / height);
    double scale = std::max(std::floor(fits), 1.0);
    if (width > screen.w || height > screen.h) scale = fits;
    return {static_cast<int>(width * scale), static_cast<int>(height * scale)};
}

// Of SDL's drivers only those that show something, unless the person names one in SDL_VIDEODRIVER: by itself
// SDL falls back to one that nobody sees. What is missing, empty for nothing.
std::string chooseDriver() {
    if (SDL_getenv("SDL_VIDEODRIVER")) return {};
    const char *x11 = SDL_getenv("DISPLAY"), *wayland = SDL_getenv("WAYLAND_DISPLAY");
    if (!x11 && !wayland) return "neither DISPLAY nor WAYLAND_DISPLAY is set (--headless needs none)";
    SDL_SetHint(SDL_HINT_VIDEODRIVER, !wayland ? "x11" : x11 ? "x11,wayland" : "wayland");
    return {};
}

} // namespace

// Whoever interrupts the program ends it, even before an open dialog.
SdlDisplay::SdlDisplay(int depth) : MemoryDisplay(depth) { SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); }

SdlDisplay::~SdlDisplay() {
    if (texture_) SDL_DestroyTexture(texture_);
    if (renderer_) SDL_DestroyRenderer(renderer_);
    if (window_) SDL_DestroyWindow(window_);
    if (started_) SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool SdlDisplay::setMode(int width, int height, int depth, bool inWindow) {
    if (!MemoryDisplay::setMode(width, height, depth, inWindow)) {
        problem_ = "no picture can be " + std::to_string(width) + " x " + std::to_string(height);
        return false;
    }
    if (problem_ = started_ ? std::string() : chooseDriver(); !problem_.empty()) return false;
    if (open() && makeTexture()) return true;
    problem_ = std::string("SDL: ") + SDL_GetError();
    return false;
}

bool SdlDisplay::open() {
    if (!started_) {
        SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1"); // the click that brings the focus counts
        SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
        if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
        started_ = true;
    }
    SDL_Point size = roomFor(width(), height());
    if (window_) {
        SDL_SetWindowSize(window_, size.x, size.y);
        return true;
    }
    window_ = SDL_CreateWindow("Tarnook", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, size.x, size.y,
                               SDL_WINDOW_RESIZABLE);
    if (!window_) return false;
    renderer_ = SDL_CreateRenderer(window_, -1, 0);
    return renderer_ != nullptr;
}

bool SdlDisplay::makeTexture() {
    if (texture_) SDL_DestroyTexture(texture_);
    texture_ = SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, width(),
                                 height());
    show(0, 0, width(), height());
    uncover();
    return texture_ != nullptr;
}

void SdlDisplay::recreate() {
    if (window_) makeTexture();
}

void SdlDisplay::show(int left, int top, int right, int bottom) {
    if (left >= right || top >= bottom) return;
    bool first = left_ >= right_;
    left_ = first ? left : std::min(left, left_);
    top_ = first ? top : std::min(top, top_);
    right_ = first ? right : std::max(right, right_);
    bottom_ = first ? bottom : std::max(bottom, bottom_);
    due_ = true;
}

void SdlDisplay::uncover() {
    int w = 0, h = 0;
    SDL_GetWindowSize(window_, &w, &h);
    placement_ = Placement(width(), height(), std::max(w, 1), std::max(h, 1));
    if (texture_)
        SDL_SetTextureScaleMode(texture_, placement_.isWhole() ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
    due_ = true;
}

void SdlDisplay::upload() {
    SDL_Rect part = {std::max(left_, 0), std::max(top_, 0), 0, 0};
    part.w = std::min(right_, width()) - part.x;
    part.h = std::min(bottom_, height()) - part.y;
    left_ = right_ = 0;
    void * bytes = nullptr;
    int pitch = 0;
    if (part.w <= 0 || part.h <= 0 || SDL_LockTexture(texture_, &part, &bytes, &pitch) != 0) return;
    auto * convertRow = depth() == 15 ? convert<5> : convert<6>;
    for (int y = 0; y < part.h; y++)
        convertRow(pixels() + static_cast<std::ptrdiff_t>(part.y + y) * width() + part.x,
                   reinterpret_cast<std::uint32_t *>(static_cast<char *>(bytes) +
                                                     static_cast<std::ptrdiff_t>(y) * pitch),
                   part.w);
    SDL_UnlockTexture(texture_);
}

void SdlDisplay::present() {
    if (!due_ || !texture_) return;
    due_ = false;
    if (left_ < right_) upload();
    SDL_Rect place = {placement_.left(), placement_.top(), placement_.shownWidth(), placement_.shownHeight()};
    SDL_SetRenderDrawColor(renderer_, 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_);
    SDL_RenderCopy(renderer_, texture_, nullptr, &place);
    SDL_RenderPresent(renderer_);
}

void SdlDisplay::toggleFullScreen() {
    bool isFull = (SDL_GetWindowFlags(window_) & SDL_WINDOW_FULLSCREEN) != 0;
    SDL_SetWindowFullscreen(window_, isFull ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
    uncover();
}

} // namespace platform
