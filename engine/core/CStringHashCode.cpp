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

CStringHashCode::~CStringHashCode() {
    if (text_ != small_) delete[] text_;
}

void CStringHashCode::makeRoom(std::size_t length) {
    if (text_ != small_) delete[] text_;
    room_ = static_cast<unsigned>(length) + kSmall;
    text_ = new char[room_];
}
