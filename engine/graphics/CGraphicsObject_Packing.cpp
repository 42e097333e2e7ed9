// Run-length coded planes: a coded object holds a fraction of the memory and is expanded to be shown.

#include "files/CRLECompression.h"
#include "graphics/CGraphicsObject.h"

void CGraphicsObject::Compress(_compression kind) {
    if (!data_) return;
    int bytes = __get_data_size(width_, height_, bpp_);
    if (compression_ == kCompressionNone) rawSize_ = colourSize_ = spareSize_ = bytes;
    if (kind != kCompressionRle || compression_ != kCompressionNone || bytes == 0) return;
    int colourSize = 0, alphaSize = 0;
    char * colour = CRLECompression::__compress(data_, bytes, colourSize);
    if (!colour) return;
    char * alpha =
        channels_[3] ? CRLECompression::__compresschar(channels_[3], width_ * height_, alphaSize) : nullptr;
    replacePlanes(colour, alpha);
    colourSize_ = spareSize_ = colourSize;
    channelSizes_[3] = alphaSize;
    compression_ = kCompressionRle;
}

void CGraphicsObject::DeCompressRLE2() {
    if (compression_ != kCompressionRle || !data_) return;
    int bytes = __get_data_size(width_, height_, bpp_);
    char * colour = CRLECompression::__decompress(data_, colourSize_, bytes);
    if (!colour) return;
    packedColour_ = data_;
    packedAlpha_ = channels_[3];
    packedDepth_ = bpp_;
    packedSize_ = colourSize_;
    packedAlphaSize_ = channelSizes_[3];
    expandedHere_ = true;
    data_ = colour;
    rawSize_ = colourSize_ = spareSize_ = bytes;
    if (packedAlpha_) {
        channelSizes_[3] = width_ * height_;
        channels_[3] = CRLECompression::__decompresschar(packedAlpha_, packedAlphaSize_, channelSizes_[3]);
    }
    compression_ = kCompressionNone;
}

void CGraphicsObject::unpack() {
    if (unpacked_) return;
    DeCompressRLE2();
    unpacked_ = true;
}

void CGraphicsObject::pack(bool free) {
    if (!unpacked_) return;
    if (packedColour_) putBack(free); // else there was nothing coded to unpack
    unpacked_ = false;
}

void CGraphicsObject::bringBackCompressed() {
    if (!unpacked_ && packedColour_) putBack(true);
}

void CGraphicsObject::putBack(bool free) {
    if (free) {
        delete[] data_;
        delete[] channels_[3];
    }
    bpp_ = packedDepth_;
    data_ = packedColour_;
    channels_[3] = packedAlpha_;
    colourSize_ = spareSize_ = packedSize_;
    channelSizes_[3] = packedAlphaSize_;
    compression_ = kCompressionRle;
    packedColour_ = packedAlpha_ = nullptr;
    packedSize_ = packedAlphaSize_ = 0;
    expandedHere_ = false;
}
