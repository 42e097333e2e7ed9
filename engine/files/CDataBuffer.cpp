#include "files/CDataBuffer.h"

#include <cstring>

namespace {

// The size, or none when it is no sensible one.
CXSize checked(CXSize size, int itemSize) {
    if (size.cx < 0 || size.cy < 0) return {0, 0};
    // Two steps, so that no product leaves 64 bits.
    long long items = static_cast<long long>(size.cx) * size.cy;
    if (items > CDataBuffer::kLargest || items * itemSize > CDataBuffer::kLargest) return {0, 0};
    return size;
}

} // namespace

CDataBuffer::CDataBuffer(int count, int itemSize) : itemSize_(itemSize < 1 ? 1 : itemSize) {
    if (count > 0 && static_cast<long long>(count) * itemSize_ <= kLargest) count_ = count;
    data_ = cursor_ = new char[static_cast<std::size_t>(getMemoryUsage())]();
}

CDataBuffer::CDataBuffer(const char * data, int count, int itemSize) : CDataBuffer(count, itemSize) {
    if (data) std::memcpy(data_, data, static_cast<std::size_t>(getMemoryUsage()));
}

CDataBuffer::~CDataBuffer() { CDataBuffer::flush(); }

void CDataBuffer::flush() {
    delete[] data_;
    delete[] backup_;
    data_ = backup_ = cursor_ = nullptr;
    count_ = 0;
}

void CDataBuffer::backup() {
    delete[] backup_;
    backup_ = nullptr;
    if (!data_) return;
    backup_ = new char[static_cast<std::size_t>(getMemoryUsage())];
    std::memcpy(backup_, data_, static_cast<std::size_t>(getMemoryUsage()));
}

void CDataBuffer::restore(bool drop) {
    if (!backup_) return;
    std::memcpy(data_, backup_, static_cast<std::size_t>(getMemoryUsage()));
    if (!drop) return;
    delete[] backup_;
    backup_ = nullptr;
}

void CDataBuffer::zero() {
    if (data_) std::memset(data_, 0, static_cast<std::size_t>(getMemoryUsage()));
}

CXObject * CDataBuffer::clone() { return new CDataBuffer(data_, count_, itemSize_); }

CDataBuffer2Dim::CDataBuffer2Dim(CXSize size, int itemSize) : CDataBuffer2Dim(nullptr, size, itemSize) {}

CDataBuffer2Dim::CDataBuffer2Dim(const char * data, CXSize size, int itemSize)
    : CDataBuffer(data, checked(size, itemSize).cx * checked(size, itemSize).cy, itemSize),
      width_(checked(size, itemSize).cx),
      height_(checked(size, itemSize).cy) {}

CXObject * CDataBuffer2Dim::clone() { return new CDataBuffer2Dim(data_, {width_, height_}, itemSize_); }
