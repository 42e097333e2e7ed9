// Pictures in files: the writer, and what a picture that was read goes through.

#include "app/CWindow.h"
#include "files/CFile.h"
#include "files/CLZWCompression2.h"
#include "graphics/CGraphicsObject.h"
#include "graphics/CSurface.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

int CGraphicsObject::Load(const CXString &) {
    CSurface * surface = window_ ? window_->GetSurface() : nullptr;
    if (surface) Convert(surface->getDepth());
    return 0;
}

int CGraphicsObject::Load(CFile *) { return 0; }

int CGraphicsObject::Save(const CXString & name, _compression compression) {
    CFile file;
    int error = file.Open(window_, name, CFile::kWrite | CFile::kUpdate | CFile::kBinary);
    if (error) return error;
    error = Save(&file, compression);
    int closed = file.Close();
    return error ? error : closed;
}

namespace {

void append(std::string & out, std::int32_t v) {
    for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>(v >> shift);
}

} // namespace

// The compression is a label for the planes, which are written as they are.
int CGraphicsObject::Save(CFile * file, _compression compression) {
    CXRect all(0, 0, width_, height_), r = clippingRect_.IsEmpty() ? all : clippingRect_.Common(all);
    bool coded = compression_ != kCompressionNone;
    if (coded) r = all; // rows can't be cut out of coded planes
    int pixel = GetPixelSize();
    std::int32_t colourSize = __get_data_size(r.Width(), r.Height(), bpp_);
    std::int32_t alphaSize = !channels_[3] || !data_ ? 0 : coded ? channelSizes_[3] : r.Width() * r.Height();
    std::string bytes("TNK", 4);
    for (std::int32_t v : {r.Width(), r.Height(), bpp_, colourSize, 0, static_cast<int>(compression),
                           alphaSize, x_ + r.left, y_ + r.top})
        append(bytes, v);
    auto rows = [&](const char * plane, int size) {
        for (int y = r.top; y < r.bottom; y++)
            bytes.append(plane + (static_cast<std::ptrdiff_t>(y) * width_ + r.left) * size,
                         static_cast<std::size_t>(r.Width()) * static_cast<std::size_t>(size));
    };
    if (data_ && coded) {
        bytes.append(data_, static_cast<std::size_t>(colourSize_));
        if (alphaSize > 0) bytes.append(channels_[3], static_cast<std::size_t>(alphaSize));
    } else if (data_ && colourSize > 0) {
        rows(data_, pixel);
        if (alphaSize > 0) rows(channels_[3], 1);
    }
    int n = static_cast<int>(bytes.size());
    return file->Write(bytes.data(), n) == n ? 0 : -1;
}

void CGraphicsObject::DeCompress() {
    if (compression_ != kCompressionLzo && compression_ != kCompressionLzoRle) return;
    CLZWCompression2 colour(data_, colourSize_);
    char * plane = data_ ? colour.decompress() : nullptr;
    if (!plane) return;
    CLZWCompression2 alpha(channels_[3], channelSizes_[3]);
    char * alphaPlane = channels_[3] && channelSizes_[3] > 0 ? alpha.decompress() : nullptr;
    bool raw = compression_ == kCompressionLzo;
    // The head names the size: a smaller plane than the picture's would be read beyond its end.
    int colourSize = colour.getOriginalSize(), wanted = __get_data_size(width_, height_, bpp_);
    int alphaSize = alphaPlane ? alpha.getOriginalSize() : 0;
    auto grown = [](char *& from, int size, int least) {
        if (size >= least) return;
        char * to = new char[static_cast<std::size_t>(least)]();
        std::copy_n(from, size, to);
        delete[] from;
        from = to;
    };
    if (raw) {
        grown(plane, colourSize, wanted);
        if (alphaPlane) grown(alphaPlane, alphaSize, width_ * height_);
        colourSize = wanted;
        alphaSize = alphaPlane ? width_ * height_ : 0;
    }
    replacePlanes(plane, alphaPlane);
    rawSize_ = wanted;
    colourSize_ = spareSize_ = colourSize;
    channelSizes_[3] = alphaSize;
    compression_ = raw ? kCompressionNone : kCompressionRle;
}
