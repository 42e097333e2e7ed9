// Coming and going, copies, and what a plane's bytes mean.

#include "graphics/CGraphicsObject.h"

#include "app/CWindow.h"
#include "core/CXArray.h"
#include "files/CDataBuffer.h"
#include "graphics/CCanvasIfc.h"
#include "graphics/CCollisionInspector.h"
#include "graphics/CValidationQuene.h"

#include <algorithm>

CGraphicsObject::CGraphicsObject(CWindow * window) : window_(window) { __initialize_mul_array(); }

CGraphicsObject::CGraphicsObject(CWindow * window, CXSize size, int depth) : CGraphicsObject(window) {
    alloc(size, depth, false);
}

CGraphicsObject::CGraphicsObject(CWindow * window, CXSize size, int depth, char * data)
    : CGraphicsObject(window) {
    CGraphicsObject::setSize(size);
    pitch_ = width_;
    bpp_ = depth;
    data_ = data;
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, depth);
}

CGraphicsObject::CGraphicsObject(CWindow * window, CGraphicsObject & other) : CGraphicsObject(other) {
    window_ = window;
    ownsPixels_ = false;
    unpacked_ = false;
    canvas_ = nullptr;
    // An expanded plane goes away when its object is packed; the coded one stays.
    if (other.packedColour_) {
        data_ = other.packedColour_;
        channels_[3] = other.packedAlpha_;
        channelSizes_[3] = other.packedAlphaSize_;
        colourSize_ = spareSize_ = other.packedSize_;
        bpp_ = other.packedDepth_;
        compression_ = kCompressionRle;
        packedColour_ = packedAlpha_ = nullptr;
    }
}

CGraphicsObject::CGraphicsObject(const CGraphicsObject & other)
    : CXObject(other), CInvalidateObserver(other), window_(other.window_) {
    takePlain(other);
}

CGraphicsObject & CGraphicsObject::operator=(const CGraphicsObject & other) {
    if (this == &other) return *this;
    CXObject::operator=(other);
    takePlain(other);
    return *this;
}

void CGraphicsObject::takePlain(const CGraphicsObject & o) {
    name_ = o.name_;
    window_ = o.window_;
    canvas_ = o.canvas_;
    destiny_ = o.destiny_;
    palette_ = o.palette_;
    width_ = o.width_;
    height_ = o.height_;
    pitch_ = o.pitch_;
    data_ = o.data_;
    bpp_ = o.bpp_;
    flags_ = o.flags_;
    autoClip_ = o.autoClip_;
    clippingRect_ = o.clippingRect_;
    viewport_ = o.viewport_;
    x_ = o.x_;
    y_ = o.y_;
    anchor_ = o.anchor_;
    flippedH_ = o.flippedH_;
    flippedV_ = o.flippedV_;
    frameWord_ = o.frameWord_;
    std::copy_n(o.channelSizes_, 4, channelSizes_);
    std::copy_n(o.channels_, 4, channels_);
    alphaAsMask_ = o.alphaAsMask_;
    ownsPixels_ = o.ownsPixels_;
    rawSize_ = o.rawSize_;
    colourSize_ = o.colourSize_;
    spareSize_ = o.spareSize_;
    compression_ = o.compression_;
    std::copy_n(o.colours_, 2, colours_);
    opacity_ = o.opacity_;
    floodCount_ = o.floodCount_;
    floodSpans_ = o.floodSpans_;
    savedRect_.Empty(); // what this object covers as a mask is put back by this object alone
    invalidated_ = o.invalidated_;
    packedColour_ = o.packedColour_;
    packedAlpha_ = o.packedAlpha_;
    packedDepth_ = o.packedDepth_;
    packedSize_ = o.packedSize_;
    packedAlphaSize_ = o.packedAlphaSize_;
    expandedHere_ = false;
    monitorCollisions_ = o.monitorCollisions_;
    unpacked_ = o.unpacked_;
    visible_ = o.visible_;
}

CGraphicsObject * CGraphicsObject::clone() { return new CGraphicsObject(window_, *this); }

CGraphicsObject::~CGraphicsObject() {
    if (wasMonitored_ && window_) window_->getCollisionInspector().forget(this);
    if (canvas_) *canvas_ >> this;
    if (drawn_)
        for (int i = 0; i < drawn_->size; i++) drawn_->element(i)->object->removeInvalidateObserver(this);
    if (observers_) {
        // Whoever hears of the end takes itself off meanwhile.
        while (observers_->size > 0) {
            auto * observer = static_cast<CInvalidateObserver *>(observers_->at(0));
            observers_->removeAt(0);
            observer->onDestroy(this);
        }
    }
    delete observers_;
    observers_ = nullptr;
    endDrawn();
    Flush();
}

int CGraphicsObject::__get_pixel_size(int depth) {
    switch (depth) {
    case 15:
    case 16: return 2;
    case 24: return 3;
    case 32: return 4;
    default: return 1;
    }
}

int CGraphicsObject::__get_data_size(int width, int height, int depth) {
    if (width <= 0 || height <= 0) return 0;
    std::int64_t pixels = std::int64_t{width} * height;
    if (pixels > kLargestPlane) return 0;
    pixels *= __get_pixel_size(depth);
    return pixels > kLargestPlane ? 0 : static_cast<int>(pixels);
}

int CGraphicsObject::GetRealBpp(int code) {
    switch (code) {
    case 1: return 8;
    case 2: return 15;
    case 4: return 16;
    case 8: return 24;
    case 256: return 2;
    case 512: return 4;
    default: return 0;
    }
}

int CGraphicsObject::GetFlagBpp(int depth) {
    switch (depth) {
    case 2: return 256;
    case 4: return 512;
    case 8: return 1;
    case 15: return 2;
    case 16: return 4;
    case 24: return 8;
    default: return 0;
    }
}

CRefreshScreen * CGraphicsObject::GetCanvas() const { return canvas_ ? canvas_->getScreen() : nullptr; }

void CGraphicsObject::setSize(CXSize size) {
    width_ = std::clamp(size.cx, 0, kFarthest);
    height_ = std::clamp(size.cy, 0, kFarthest);
}

void CGraphicsObject::SetChannelSize(int i, int bytes) {
    if (i >= 0 && i < 4) channelSizes_[i] = bytes;
}

char * CGraphicsObject::setChannel(int i, char * plane) {
    if (plane) channels_[i] = plane;
    return channels_[i];
}

bool CGraphicsObject::isRaw16() const {
    return data_ && compression_ == kCompressionNone && (bpp_ == 15 || bpp_ == 16) && width_ > 0 &&
           height_ > 0;
}
