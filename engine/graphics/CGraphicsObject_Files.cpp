// Pictures in files: the writer, and what a picture that was read goes through.

#include "app/CWindow.h"
#include "files/CFile.h"
#include "files/CLZWCompression2.h"
#include "graphics/CGraphicsObject.h"
#include "graphics/CSurface.h"
#include "graphics/JPEG.h"

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

// The contents of a block, with zeros behind them up to `least` bytes; null for a block without sense.
char * expanded(char * block, int blockSize, int least, int & size) {
    CLZWCompression2 coder(block, blockSize);
    char * plane = coder.decompress();
    size = coder.getOriginalSize();
    if (!plane || size >= least) return plane;
    char * longer = new char[static_cast<std::size_t>(least)]();
    std::copy_n(plane, size, longer);
    delete[] plane;
    size = least;
    return longer;
}

// Null when it is damaged or shows a picture of another size.
char * jpegPlane(const char * file, int fileSize, CXSize size, int depth) {
    JPEG jpeg(file, fileSize);
    return jpeg.getWidth() == size.cx && jpeg.getHeight() == size.cy ? jpeg.decompress(depth) : nullptr;
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
    std::string bytes("TNK\0", 4);
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

// Planes that can't be expanded stay as they are, the compression too.
void CGraphicsObject::DeCompress() {
    bool lzo = compression_ == kCompressionLzo, jpeg = compression_ == kCompressionJpeg;
    if (!data_ || (!lzo && !jpeg && compression_ != kCompressionLzoRle)) return;
    bool raw = lzo || jpeg;
    // A block's head names its size: a smaller plane than the picture's would be read beyond its end.
    int depth = jpeg && bpp_ != 15 ? 16 : bpp_, wanted = __get_data_size(width_, height_, depth);
    int pixels = width_ * height_, colourSize = wanted, alphaSize = 0;
    char * plane = jpeg ? jpegPlane(data_, colourSize_, {width_, height_}, depth)
                        : expanded(data_, colourSize_, raw ? wanted : 0, colourSize);
    if (!plane || wanted == 0) {
        delete[] plane;
        return;
    }
    char * alpha = channels_[3] && channelSizes_[3] > 0
                       ? expanded(channels_[3], channelSizes_[3], raw ? pixels : 0, alphaSize)
                       : nullptr;
    replacePlanes(plane, alpha);
    bpp_ = depth;
    rawSize_ = wanted;
    colourSize_ = spareSize_ = raw ? wanted : colourSize;
    channelSizes_[3] = alpha && raw ? pixels : alphaSize;
    compression_ = raw ? kCompressionNone : kCompressionRle;
}
