#include "graphics/JPEG.h"

#include "files/WholeFile.h"
#include "graphics/CGraphicsObject.h"
#include "graphics/JpegDecoder.h"

#include <cstring>
#include <vector>

namespace {

std::uint16_t word(const unsigned char * rgb, int depth) {
    if (depth == 15) return static_cast<std::uint16_t>(rgb[0] >> 3 << 10 | rgb[1] >> 3 << 5 | rgb[2] >> 3);
    return static_cast<std::uint16_t>(rgb[0] >> 3 << 11 | rgb[1] >> 2 << 5 | rgb[2] >> 3);
}

} // namespace

JPEG::JPEG(const char * path) {
    CFile file(nullptr, path, CFile::kRead | CFile::kBinary);
    if (file.LastError() == 0 && wholefile::read(file, file_)) prepare(file_.data(), file_.size());
}

JPEG::JPEG(const char * buffer, long size) {
    if (buffer && size > 0) prepare(buffer, static_cast<std::size_t>(size));
}

JPEG::~JPEG() = default;

void JPEG::prepare(const void * bytes, std::size_t size) {
    decoder_ = std::make_unique<JpegDecoder>(bytes, size);
    if (!decoder_->isReady()) return;
    width_ = decoder_->getWidth();
    height_ = decoder_->getHeight();
}

bool JPEG::isReady() const { return decoder_ && decoder_->isReady(); }

const char * JPEG::error() const { return decoder_ ? decoder_->error() : "there's no such file"; }

char * JPEG::decompress(int depth) {
    if (!isReady()) return nullptr;
    int bytes = CGraphicsObject::__get_data_size(width_, height_, 16);
    if (bytes == 0) return nullptr;
    std::unique_ptr<char[]> plane(new char[static_cast<std::size_t>(bytes)]);
    std::vector<unsigned char> row(static_cast<std::size_t>(width_) * 3);
    char * to = plane.get();
    for (int y = 0; y < height_; y++) {
        if (!decoder_->readRow(row.data())) return nullptr;
        for (std::size_t x = 0; x < row.size(); x += 3, to += 2) {
            std::uint16_t pixel = word(&row[x], depth);
            std::memcpy(to, &pixel, sizeof pixel);
        }
    }
    return plane.release();
}
