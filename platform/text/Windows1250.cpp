#include "platform/text/Windows1250.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

namespace {

// The characters of the bytes from 0x80 on.
constexpr std::array<char16_t, 128> kUpperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, 0x0088, 0x2030, 0x0160, 0x2039, 0x015A,
    0x0164, 0x017D, 0x0179, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD,
    0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA,
    0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4,
    0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};

// Takes one character off the front; -1 for malformed bytes, of which it takes one.
int takeCharacter(std::string_view & text) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(text[i])); };
    unsigned first = byte(0);
    std::size_t length = 0;
    if (first < 0x80)
        length = 1;
    else if (first >= 0xC2 && first < 0xE0)
        length = 2;
    else if (first >= 0xE0 && first < 0xF0)
        length = 3;
    else if (first >= 0xF0 && first < 0xF5)
        length = 4;
    unsigned code = length == 1 ? first : first & (0x7FU >> length);
    bool sound = length > 0 && length <= text.size();
    for (std::size_t i = 1; sound && i < length; i++) {
        sound = (byte(i) & 0xC0U) == 0x80;
        code = code << 6 | (byte(i) & 0x3FU);
    }
    text.remove_prefix(sound ? length : 1);
    return sound ? static_cast<int>(code) : -1;
}

// The byte of a character, -1 when it has none.
int byteOf(int character) {
    if (character < 0x80) return character;
    const auto * hit = std::ranges::find(kUpperHalf, static_cast<char16_t>(character));
    if (hit == kUpperHalf.end() || character > 0xFFFF) return -1;
    return 0x80 + static_cast<int>(hit - kUpperHalf.begin());
}

} // namespace

std::string toUtf8(std::string_view windows1250) {
    std::string text;
    text.reserve(windows1250.size());
    for (char c : windows1250) {
        auto byte = static_cast<unsigned char>(c);
        unsigned code = byte < 0x80 ? byte : kUpperHalf[byte - 0x80U];
        if (code < 0x80) {
            text += static_cast<char>(code);
        } else if (code < 0x800) {
            text += static_cast<char>(0xC0U | code >> 6);
            text += static_cast<char>(0x80U | (code & 0x3FU));
        } else {
            text += static_cast<char>(0xE0U | code >> 12);
            text += static_cast<char>(0x80U | (code >> 6 & 0x3FU));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

std::string fromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        int byte = byteOf(takeCharacter(utf8));
        text += byte < 0 ? '?' : static_cast<char>(byte);
    }
    return text;
}

bool fitsWindows1250(std::string_view utf8) {
    while (!utf8.empty())
        if (byteOf(takeCharacter(utf8)) < 0) return false;
    return true;
}

} // namespace platform
