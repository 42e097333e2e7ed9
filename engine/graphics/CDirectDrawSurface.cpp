#include "graphics/CDirectDrawSurface.h"

#include <algorithm>

CDirectDrawSurface::CDirectDrawSurface(CWindow * window, CXSize size, int depth)
    : CGraphicsObject(window, size, depth) {
    if (data_) std::fill_n(words(), count(), std::uint16_t{0});
}

void CDirectDrawSurface::Blt(CDirectDrawSurface * onto, int x, int y, CXRect part) {
    part = part.Common(CXRect(0, 0, width_, height_));
    CXRect place = (CXRect(0, 0, part.Width(), part.Height()) + CXPoint(x, y))
                       .Common(CXRect(0, 0, onto->width_, onto->height_));
    if (!data_ || !onto->data_ || place.Width() <= 0 || place.Height() <= 0) return;
    int left = part.left + place.left - x, top = part.top + place.top - y;
    for (int row = 0; row < place.Height(); row++)
        std::copy_n(words() + static_cast<std::ptrdiff_t>(top + row) * width_ + left, place.Width(),
                    onto->words() + static_cast<std::ptrdiff_t>(place.top + row) * onto->width_ + place.left);
}
