// A wandering mask: its alpha lies over another object's, and what it covers is kept.

#include "files/CRLECompression.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

void copyRows(char * to, int toWidth, const char * from, int fromWidth, CXSize size) {
    for (int y = 0; y < size.cy; y++)
        std::memcpy(to + static_cast<std::ptrdiff_t>(y) * toWidth,
                    from + static_cast<std::ptrdiff_t>(y) * fromWidth, static_cast<std::size_t>(size.cx));
}

} // namespace

void CGraphicsObject::restoreAlpha(CGraphicsObject * mask) {
    CXRect r = mask->savedRect_.Common({0, 0, width_, height_});
    if (!mask->savedAlpha_ || !isRaw16() || !channels_[3]) return;
    if (r == mask->savedRect_ && !r.IsEmpty()) // else it was cropped meanwhile
        copyRows(channels_[3] + static_cast<std::ptrdiff_t>(r.top) * width_ + r.left, width_,
                 mask->savedAlpha_, r.Width(), {r.Width(), r.Height()});
    tellCanvas(mask->savedRect_);
}

void CGraphicsObject::mergeAlpha(CXPoint p, CGraphicsObject * mask) {
    if (!isRaw16() || !channels_[3]) return;
    restoreAlpha(mask);
    delete[] mask->savedAlpha_;
    mask->savedAlpha_ = nullptr;
    if (p.x >= width_ || p.y >= height_) return;
    if (mask->compression_ == kCompressionRle) mask->DeCompressRLE2();
    if (!mask->channels_[3] || mask->compression_ != kCompressionNone) return;
    CXRect r(std::max(p.x, 0), std::max(p.y, 0),
             static_cast<int>(std::min<std::int64_t>(std::int64_t{p.x} + mask->width_, width_)),
             static_cast<int>(std::min<std::int64_t>(std::int64_t{p.y} + mask->height_, height_)));
    mask->savedRect_ = r;
    if (r.Width() <= 0 || r.Height() <= 0) return;
    CXSize size(r.Width(), r.Height());
    char * covered = channels_[3] + static_cast<std::ptrdiff_t>(r.top) * width_ + r.left;
    mask->savedAlpha_ = new char[static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy)];
    copyRows(mask->savedAlpha_, size.cx, covered, width_, size);
    copyRows(covered, width_,
             mask->channels_[3] + static_cast<std::ptrdiff_t>(r.top - p.y) * mask->width_ + (r.left - p.x),
             mask->width_, size);
    tellCanvas(r + getRect().LeftTop());
}

void CGraphicsObject::mergeAlpha2(CXPoint p, CGraphicsObject * mask, bool reset) {
    if (!isRaw16() || !channels_[3]) return;
    if (reset) std::fill_n(alphaBytes(), count(), static_cast<unsigned char>(255));
    if (mask->compression_ == kCompressionRle) mask->DeCompressRLE2();
    CXRect box = mask->GetBoundingBox();
    if (mask->channels_[3] && mask->compression_ == kCompressionNone) {
        int w = std::min(box.Width(), mask->width_), h = std::min(box.Height(), mask->height_);
        for (int row = 0; row < h; row++) {
            std::int64_t y = std::int64_t{p.y} + row;
            if (y < 0 || y >= height_) continue;
            for (int column = 0; column < w; column++) {
                std::int64_t x = std::int64_t{p.x} + column;
                if (x < 0 || x >= width_) continue;
                char & mine = channels_[3][y * width_ + x];
                if (mine) mine = mask->channels_[3][static_cast<std::ptrdiff_t>(row) * mask->width_ + column];
            }
        }
    }
    tellCanvas(box);
}
