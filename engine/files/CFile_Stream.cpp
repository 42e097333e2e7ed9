#include "files/CFile_Stream.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

CFile_Stream::CFile_Stream(const char * buffer, int length)
    : buffer_(buffer), length_(buffer ? std::max(length, 0) : 0) {}

int CFile_Stream::Seek(int offset, int whence) {
    if (whence == 2) position_ = length_;
    if (whence == 1)
        position_ = static_cast<int>(
            std::clamp<std::int64_t>(static_cast<std::int64_t>(position_) + offset, 0, length_));
    return 0;
}

int CFile_Stream::Read(void * to, int n) {
    n = std::min(n, length_ - position_);
    if (n < 1) return 0;
    std::memcpy(to, buffer_ + position_, static_cast<std::size_t>(n));
    position_ += n;
    return n;
}
