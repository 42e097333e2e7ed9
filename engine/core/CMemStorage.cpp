#include "core/CMemStorage.h"

#include <cstring>

CMemStorage::CMemStorage(int chunkSize) : chunkSize_(chunkSize < 1 ? kDefaultChunk : chunkSize) {
    addChunk();
}

void CMemStorage::addChunk() {
    chunks_.emplace_back(new char[static_cast<std::size_t>(chunkSize_)]);
    used_.push_back(0);
}

void CMemStorage::put(const void * data, int size) {
    if (size < 1 || size > chunkSize_) return;
    if (used_.back() + size > chunkSize_) addChunk();
    std::memcpy(chunks_.back().get() + used_.back(), data, static_cast<std::size_t>(size));
    used_.back() += size;
    total_ += size;
}

void CMemStorage::copy(void * target) const {
    auto * to = static_cast<char *>(target);
    for (std::size_t i = 0; i < chunks_.size(); i++) {
        std::memcpy(to, chunks_[i].get(), static_cast<std::size_t>(used_[i]));
        to += used_[i];
    }
}
