#include "graphics/CFrame.h"

#include <algorithm>
#include <cstring>

CFrame::CFrame(CWindow * window, CFrame & shared)
    : CGraphicsObject(window, shared),
      version_(shared.version_),
      posOffset_(shared.posOffset_),
      framePosition_(shared.framePosition_) {}

void CFrame::SetPosition(int x, int y) {
    CGraphicsObject::SetPosition(x, y);
    posOffset_ = {};
    framePosition_ = {x_, y_};
}

void CFrame::Move(int dx, int dy) {
    CGraphicsObject::Move(dx, dy);
    posOffset_ = {place(std::int64_t{posOffset_.x} + dx), place(std::int64_t{posOffset_.y} + dy)};
}

void CFrame::redraw(CGraphicsObject * onto) {
    DeCompress(); // what comes in blocks becomes raw or run-length planes, for which the base sees
    CGraphicsObject::redraw(onto);
}

void CFrame::take(CXSize size, CXPoint at, int depth, _compression compression, std::string_view colour,
                  std::string_view alpha) {
    Flush();
    setSize(size);
    pitch_ = width_;
    bpp_ = depth;
    SetPosition(at.x, at.y);
    compression_ = compression;
    rawSize_ = __get_data_size(width_, height_, bpp_);
    auto plane = [&](std::string_view bytes, int raw) {
        std::size_t n = compression == kCompressionNone ? static_cast<std::size_t>(raw) : bytes.size();
        if (n == 0) return static_cast<char *>(nullptr);
        char * p = new char[n]();
        std::memcpy(p, bytes.data(), std::min(n, bytes.size()));
        colourSize_ = static_cast<int>(n);
        return p;
    };
    if (rawSize_ == 0) return;
    if (!alpha.empty()) channels_[3] = plane(alpha, width_ * height_);
    channelSizes_[3] = channels_[3] ? colourSize_ : 0;
    colourSize_ = 0;
    data_ = plane(colour, rawSize_);
    spareSize_ = colourSize_;
}

std::string_view CFrame::colourBytes() const {
    return {data_, data_ ? static_cast<std::size_t>(colourSize_) : 0};
}

std::string_view CFrame::alphaPlaneBytes() const {
    return {channels_[3], channels_[3] ? static_cast<std::size_t>(channelSizes_[3]) : 0};
}
