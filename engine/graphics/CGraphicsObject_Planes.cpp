// Planes: made, replaced, copied, brought to another depth.

#include "files/CDataBuffer.h"
#include "graphics/CGraphicsObject.h"

#include <algorithm>
#include <cstring>

namespace {

char * newPlane(int bytes) { return bytes > 0 ? new char[static_cast<std::size_t>(bytes)] : nullptr; }

char * copyOf(const char * plane, int bytes) {
    if (!plane || bytes <= 0) return nullptr;
    char * copy = newPlane(bytes);
    std::memcpy(copy, plane, static_cast<std::size_t>(bytes));
    return copy;
}

// The part of a plane of rows; r lies inside it.
char * part(const char * plane, int width, CXRect r, int itemSize) {
    if (!plane) return nullptr;
    auto row = static_cast<std::size_t>(r.Width()) * static_cast<std::size_t>(itemSize);
    char * out = newPlane(static_cast<int>(row) * r.Height());
    for (int y = 0; y < r.Height(); y++)
        std::memcpy(out + row * static_cast<std::size_t>(y),
                    plane + (static_cast<std::ptrdiff_t>(r.top + y) * width + r.left) * itemSize, row);
    return out;
}

} // namespace

void CGraphicsObject::alloc(CXSize size, int depth, bool withAlpha) {
    Flush();
    setSize(size);
    pitch_ = width_;
    bpp_ = depth;
    Alloc();
    if (!withAlpha || !data_) return;
    channelSizes_[3] = width_ * height_;
    channels_[3] = newPlane(channelSizes_[3]);
}

void CGraphicsObject::Alloc() {
    Flush();
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, bpp_);
    data_ = newPlane(rawSize_);
}

void CGraphicsObject::Flush() {
    delete backup_;
    backup_ = nullptr;
    pack(true);
    if (packedColour_) putBack(ownsPixels_ || expandedHere_);
    if (ownsPixels_) {
        delete[] data_;
        for (char * plane : channels_) delete[] plane;
    }
    delete[] savedAlpha_;
    savedAlpha_ = nullptr;
    data_ = nullptr;
    std::fill_n(channels_, 4, nullptr);
    std::fill_n(channelSizes_, 4, 0);
    rawSize_ = colourSize_ = spareSize_ = 0;
    compression_ = kCompressionNone;
    unpacked_ = false;
    ownsPixels_ = true; // what comes next is its own
}

void CGraphicsObject::replacePlanes(char * colour, char * alpha) {
    if (ownsPixels_) {
        if (colour != data_) delete[] data_;
        if (alpha != channels_[3]) delete[] channels_[3];
    } else {
        if (colour == data_) colour = copyOf(colour, colourSize_);
        if (alpha == channels_[3]) alpha = copyOf(alpha, channelSizes_[3]);
        std::fill_n(channels_, 3, nullptr);
        ownsPixels_ = true;
    }
    data_ = colour;
    channels_[3] = alpha;
}

void CGraphicsObject::Split() {
    if (!data_ || bpp_ != 24 || compression_ != kCompressionNone) return;
    std::ptrdiff_t n = count();
    char * planes[3];
    for (int c = 0; c < 3; c++) {
        planes[c] = newPlane(static_cast<int>(n));
        for (std::ptrdiff_t i = 0; i < n; i++) planes[c][i] = data_[i * 3 + 2 - c];
    }
    replacePlanes(nullptr, channels_[3]);
    for (int c = 0; c < 3; c++) {
        delete[] channels_[c];
        channels_[c] = planes[c];
        channelSizes_[c] = static_cast<int>(n);
    }
    rawSize_ = colourSize_ = spareSize_ = 0;
}

void CGraphicsObject::JoinChannels() {
    int bytes = __get_data_size(width_, height_, 24);
    if (bytes == 0) return;
    int depth = bpp_;
    char * joined = newPlane(bytes);
    for (std::ptrdiff_t i = 0; i < count(); i++)
        for (int c = 0; c < 3; c++) joined[i * 3 + 2 - c] = channels_[c] ? channels_[c][i] : '\0';
    if (ownsPixels_)
        for (int c = 0; c < 3; c++) delete[] channels_[c];
    std::fill_n(channels_, 3, nullptr);
    std::fill_n(channelSizes_, 3, 0);
    replacePlanes(joined, channels_[3]);
    rawSize_ = colourSize_ = spareSize_ = bytes;
    compression_ = kCompressionNone;
    bpp_ = 24;
    Convert(depth);
}

char * CGraphicsObject::Join2Channels() {
    if (!data_ || bpp_ != 24 || compression_ != kCompressionNone) return nullptr;
    char * joined = newPlane(__get_data_size(width_, height_, 32));
    if (!joined) return nullptr;
    for (std::ptrdiff_t i = 0; i < count(); i++) {
        std::memcpy(joined + i * 4, data_ + i * 3, 3);
        joined[i * 4 + 3] = channels_[3] ? channels_[3][i] : '\xFF';
    }
    return joined;
}

void CGraphicsObject::SplitOn2(char * rgba, int pixels) {
    CXSize size(width_, height_);
    Flush();
    if (!rgba || pixels <= 0 || pixels > kLargestPlane / 4) return;
    // A picture of another size than the pixels that came would be read beyond its planes.
    if (size.cx <= 0 || std::int64_t{size.cx} * size.cy != pixels) setSize({pixels, 1});
    pitch_ = width_;
    bpp_ = 24;
    rawSize_ = colourSize_ = spareSize_ = pixels * 3;
    channelSizes_[3] = pixels;
    data_ = newPlane(pixels * 3);
    channels_[3] = newPlane(pixels);
    for (std::ptrdiff_t i = 0; i < pixels; i++) {
        std::memcpy(data_ + i * 3, rgba + i * 4, 3);
        channels_[3][i] = rgba[i * 4 + 3];
    }
}

bool CGraphicsObject::Convert(int depth) {
    int target = depth == 24 || depth == 32 ? (bpp_ == 15 ? 16 : bpp_) : depth;
    if (target >= 24 || target == bpp_ || !data_ || count() < 4 || compression_ != kCompressionNone)
        return true;
    // In place, a conversion would change the pixels of the object that this one shares them with.
    if (!ownsPixels_ && __get_convert_code(bpp_, target) != 0) replacePlanes(data_, channels_[3]);
    char * plane = data_;
    if (!__convert_bpp(plane, width_, height_, bpp_, target, palette_)) return false;
    replacePlanes(plane, channels_[3]);
    bpp_ = target;
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, bpp_);
    return true;
}

void CGraphicsObject::Copy(CGraphicsObject * source) {
    if (source == this) return;
    CXRect all(0, 0, source->width_, source->height_);
    CXRect clip = source->clippingRect_;
    bool cut = !clip.IsEmpty();
    CXRect r = cut ? clip.Common(all) : all;
    Flush();
    name_ = source->name_ + "copy";
    window_ = source->window_;
    destiny_ = source->destiny_;
    pitch_ = source->pitch_;
    bpp_ = source->bpp_;
    autoClip_ = source->autoClip_;
    clippingRect_ = source->clippingRect_;
    viewport_ = source->viewport_;
    x_ = source->x_;
    y_ = source->y_;
    frameWord_ = source->frameWord_;
    width_ = r.Width();
    height_ = r.Height();
    ownsPixels_ = visible_ = true;
    if (cut) {
        pitch_ = GetPixelSize() * width_;
        clippingRect_.Empty();
        viewport_.Empty();
    }
    bool coded = source->compression_ == kCompressionRle;
    if (coded) source->DeCompressRLE2();
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, bpp_);
    if (source->compression_ == kCompressionNone && source->data_ && rawSize_ > 0) {
        data_ = part(source->data_, source->width_, r, GetPixelSize());
        for (int c = 0; c < 4; c++) {
            channels_[c] = part(source->channels_[c], source->width_, r, 1);
            channelSizes_[c] = channels_[c] ? width_ * height_ : 0;
        }
    }
    if (coded) source->bringBackCompressed();
}

void CGraphicsObject::Copy(CGraphicsObject * source, CXRect r) {
    if (r.IsEmpty()) return Copy(source);
    CXRect clip = source->clippingRect_, viewport = source->viewport_;
    source->clippingRect_ = r;
    Copy(source);
    source->clippingRect_ = clip;
    source->viewport_ = viewport;
    x_ = r.left;
    y_ = r.top;
}

void CGraphicsObject::crop(CXRect rect) {
    Invalidate();
    CXRect r = rect.Common({0, 0, width_, height_});
    if (!isRaw16() || r.IsEmpty()) return;
    replacePlanes(part(data_, width_, r, 2), part(channels_[3], width_, r, 1));
    width_ = r.Width();
    height_ = r.Height();
    rawSize_ = colourSize_ = spareSize_ = __get_data_size(width_, height_, bpp_);
    if (channels_[3]) channelSizes_[3] = width_ * height_;
}

int CGraphicsObject::__get_convert_code(int from, int to) {
    if (from == 15 && to == 16) return 1;
    if (from == 16 && to == 15) return 2;
    if (from == 32 && to == 15) return 3;
    if (from == 32 && to == 16) return 4;
    return from == to && (from == 15 || from == 16) ? 5 : 0;
}

bool CGraphicsObject::__convert_bpp(char *& data, int width, int height, int from, int to, _palette *) {
    switch (__get_convert_code(from, to)) {
    case 1: _convert15to16(data, width, height); return true;
    case 2: _convert16to15(data, width, height); return true;
    case 3: _convert32to15(data, width, height); return true;
    case 4: {
        char * plane = _convert32to16(data, width, height);
        if (!plane) return false;
        data = plane;
        return true;
    }
    default: return to == from;
    }
}
