#include "core/CMemStream.h"

#include "files/CDataBuffer.h"
#include "files/CFile.h"

#include <algorithm>
#include <cstring>

CMemStream::CMemStream(CFile * file) {
    size_ = std::max(file->Length(), 0);
    data_ = std::make_unique<CDataBuffer>(size_, 1);
    at_ = data_->getData();
    if (size_ > 0) {
        file->Seek(0, 0);
        size_ = file->Read(at_, size_);
    }
    end_ = at_ + size_;
}

CMemStream::~CMemStream() = default;

void CMemStream::wholeByte() {
    if (bit_ == 0) return;
    bit_ = 0;
    if (at_ < end_) at_++; // get_bytes may have gone to the end from the middle of a byte
}

int CMemStream::get_bit() {
    if (at_ >= end_) return 0;
    int bit = static_cast<unsigned char>(*at_) >> (7 - bit_) & 1;
    if (++bit_ == 8) wholeByte();
    return bit;
}

unsigned CMemStream::get_bits(int n) {
    unsigned bits = 0;
    for (int i = 0; i < std::min(n, 32); i++) bits = bits << 1 | static_cast<unsigned>(get_bit());
    return bits;
}

int CMemStream::get_signed_bits(int n) {
    if (n < 1) return 0;
    unsigned bits = get_bits(n);
    if (n < 32 && (bits >> (n - 1) & 1)) bits |= ~0U << n;
    return static_cast<int>(bits);
}

unsigned CMemStream::number(int bytes) {
    wholeByte();
    unsigned value = 0;
    for (int i = 0; i < bytes && at_ < end_; i++)
        value |= static_cast<unsigned>(static_cast<unsigned char>(*at_++)) << 8 * i;
    return value;
}

char CMemStream::get_char() { return static_cast<char>(number(1)); }
short CMemStream::get_shortint() { return static_cast<short>(number(2)); }
int CMemStream::get_int() { return static_cast<int>(number(4)); }

void CMemStream::move(int n) {
    wholeByte();
    at_ += std::clamp<std::ptrdiff_t>(n, data_->getData() - at_, end_ - at_);
}

void CMemStream::get_bytes(void * to, int n) {
    if (n < 1) return;
    int there = static_cast<int>(std::min<std::ptrdiff_t>(n, end_ - at_));
    std::memcpy(to, at_, static_cast<std::size_t>(there));
    std::memset(static_cast<char *>(to) + there, 0, static_cast<std::size_t>(n - there));
    at_ += there;
}
