#pragma once

// Bytes gathered piece by piece in chunks of one size.

#include <memory>
#include <vector>

class CMemStorage {
public:
    static constexpr int kDefaultChunk = 102400;

    explicit CMemStorage(int chunkSize = -1); // -1 means kDefaultChunk
    virtual ~CMemStorage() = default;

    // Appends size bytes; one put must not exceed the chunk size, and one that does is refused.
    void put(const void * data, int size);
    void copy(void * target) const; // all bytes in order: getTotalSize() of them
    char * getBuffer(int i) { return chunks_[static_cast<std::size_t>(i)].get(); }
    int getDataSize(int i) const { return used_[static_cast<std::size_t>(i)]; }
    int getTotalSize() const { return total_; }
    int getChunkCount() const { return static_cast<int>(chunks_.size()); }

private:
    void addChunk();

    int chunkSize_;
    std::vector<std::unique_ptr<char[]>> chunks_;
    std::vector<int> used_;
    int total_ = 0;
};
