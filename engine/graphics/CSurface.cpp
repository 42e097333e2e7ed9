#include "graphics/CSurface.h"

#include "graphics/CDirectDrawSurface.h"
#include "platform/World.h"
#include "platform/display/PlainText.h"

#include <algorithm>
#include <string>

std::uint32_t * CSurface::bpp_cnv_table = nullptr;

CSurface::CSurface(CXSize size, int depth, bool flipping) : size_(size), depth_(depth), flipping_(flipping) {
    open(false);
}

CSurface::CSurface(CXSize size) : size_(size), depth_(platform::world().display->depth()) { open(true); }

void CSurface::open(bool inWindow) {
    prepareBppConversionTable(depth_);
    if (!platform::world().display->setMode(size_.cx, size_.cy, depth_, inWindow)) setErrorCode(kNoDisplay);
}

void CSurface::Blt(CDirectDrawSurface * source, int x, int y, CXRect * rect) {
    platform::Display & display = *platform::world().display;
    auto * from = reinterpret_cast<const std::uint16_t *>(source->GetDataPtr());
    std::uint16_t * to = display.pixels();
    if (!from || !to) return;
    CXRect part = CXRect(0, 0, source->getWidth(), source->getHeight());
    if (rect) part = part.Common(*rect);
    CXRect place = (CXRect(0, 0, part.Width(), part.Height()) + CXPoint(x, y))
                       .Common(CXRect(0, 0, display.width(), display.height()));
    if (place.Width() <= 0 || place.Height() <= 0) return;
    int left = part.left + place.left - x, top = part.top + place.top - y;
    for (int row = 0; row < place.Height(); row++)
        std::copy_n(from + static_cast<std::ptrdiff_t>(top + row) * source->getWidth() + left, place.Width(),
                    to + static_cast<std::ptrdiff_t>(place.top + row) * display.width() + place.left);
    display.show(place.left, place.top, place.right, place.bottom);
}

void CSurface::Flip(CDirectDrawSurface * back) { Blt(back, 0, 0, nullptr); }

namespace {

constexpr int kFpsX = 10, kFpsY = 10;

}

void CSurface::ShowFPS(CXPoint, CDirectDrawSurface *) {
    platform::Clock & clock = *platform::world().clock;
    std::int64_t now = clock.counter();
    frames_++;
    if (now - second_ >= clock.counterFrequency()) {
        perSecond_ = static_cast<unsigned long>(frames_);
        frames_ = 0;
        second_ = now;
    }
    ShowFPS(perSecond_);
}

void CSurface::ShowFPS(unsigned long frames) {
    platform::drawText(*platform::world().display, kFpsX, kFpsY, "FPS: " + std::to_string(frames) + "   ");
}

void CSurface::prepareBppConversionTable(int depth) {
    if (depth < 24 || bpp_cnv_table) return;
    bpp_cnv_table = new std::uint32_t[0x10000];
    for (std::uint32_t v = 0; v < 0x10000; v++)
        bpp_cnv_table[v] = (v & 0xF800) << 8 | (v & 0x07E0) << 5 | (v & 0x001F) << 3;
}

void CSurface::releaseBppConversionTable() {
    delete[] bpp_cnv_table;
    bpp_cnv_table = nullptr;
}
