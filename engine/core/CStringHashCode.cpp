#include "core/CStringHashCode.h"

int nameHash(std::string_view text) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        // Bytes above 127 count as negative. NOLINTNEXTLINE(bugprone-signed-char-misuse)
        auto byte = static_cast<std::uint32_t>(static_cast<signed char>(text[i]));
        sum += (1U << (i % 16)) + static_cast<std::uint32_t>(i + 1) * byte;
    }
    return static_cast<int>(sum);
}

namespace {

#if defined(__has_feature)
#define TARNOOK_WATCHED __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define TARNOOK_WATCHED 1
#else
#define TARNOOK_WATCHED 0
#endif

struct SpareBlocks {
    static constexpr int kMost = TARNOOK_WATCHED ? 0 : 64; // a key that is used after its end must be found

    void * first = nullptr; // each block holds the next one's address
    int count = 0;
};

// Without a destructor, as that would cost a check at each use: a thread that ends leaves its few blocks.
__attribute__((tls_model("initial-exec"))) constinit thread_local SpareBlocks spare;

} // namespace

void * CStringHashCode::operator new(std::size_t bytes) {
    SpareBlocks & blocks = spare;
    void * block = blocks.first;
    if (!block || bytes != sizeof(CStringHashCode)) return ::operator new(bytes);
    std::memcpy(&blocks.first, block, sizeof block);
    blocks.count--;
    return block;
}

void CStringHashCode::operator delete(void * block, std::size_t bytes) noexcept {
    SpareBlocks & blocks = spare;
    if (!block || bytes != sizeof(CStringHashCode) || blocks.count >= SpareBlocks::kMost) {
        ::operator delete(block);
        return;
    }
    std::memcpy(block, &blocks.first, sizeof block);
    blocks.first = block;
    blocks.count++;
}

void CStringHashCode::keepLong(std::string_view text) {
    if (length_ >= room_) {
        if (text_ != small_) delete[] text_;
        room_ = length_ + kSmall;
        text_ = new char[room_];
    }
    std::memcpy(text_, text.data(), length_);
    text_[length_] = 0;
}

void CStringHashCode::unpack() const {
    auto put = [this](std::size_t at, std::uint64_t bytes, std::size_t count) {
        std::memcpy(text_ + at, &bytes, count);
    };
    if (length_ >= 8) {
        put(0, mark_.ends[0], 8);
        put(length_ - 8, mark_.ends[1], 8);
    } else if (length_ >= 4) {
        put(0, mark_.ends[0], 4);
        put(length_ - 4, mark_.ends[1] >> 32, 4);
    } else if (length_ > 0) {
        put(0, mark_.ends[0], 1);
        put(length_ / 2, mark_.ends[0] >> 8, 1);
        put(length_ - 1, mark_.ends[0] >> 16, 1);
    }
    text_[length_] = 0;
}
