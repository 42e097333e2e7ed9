#include "platform/text/Windows1250.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace platform {

namespace {

// The characters of the bytes from 0x80 on.
constexpr std::array<std::uint16_t, 128> kUpperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179, // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, // 98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7, // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, // A8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7, // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, // B8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E, // C8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, // D8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7, // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, // E8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7, // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9, // F8
};

struct Pair {
    std::uint16_t character;
    unsigned char byte;
};

// The same by character.
constexpr auto kByCharacter = [] {
    std::array<Pair, 128> pairs{};
    for (unsigned i = 0; i < 128; i++) pairs[i] = {kUpperHalf[i], static_cast<unsigned char>(0x80 + i)};
    std::sort(pairs.begin(), pairs.end(), [](Pair a, Pair b) { return a.character < b.character; });
    return pairs;
}();

constexpr auto kUpperCase = [] {
    std::array<unsigned char, 256> upper{};
    for (unsigned c = 0; c < 256; c++) upper[c] = static_cast<unsigned char>(c);
    for (unsigned c = 'a'; c <= 'z'; c++) upper[c] = static_cast<unsigned char>(c - 0x20);
    for (unsigned c = 0xE0; c <= 0xFE; c++)
        if (c != 0xF7) upper[c] = static_cast<unsigned char>(c - 0x20); // 0xF7 is the division sign
    for (unsigned c : {0x9Au, 0x9Cu, 0x9Du, 0x9Eu, 0x9Fu}) upper[c] = static_cast<unsigned char>(c - 0x10);
    constexpr std::pair<unsigned char, unsigned char> kScattered[] = {
        {0xB3, 0xA3}, {0xB9, 0xA5}, {0xBA, 0xAA}, {0xBE, 0xBC}, {0xBF, 0xAF}};
    for (auto [lower, big] : kScattered) upper[lower] = big;
    return upper;
}();

constexpr std::uint32_t kMalformed = ~std::uint32_t{0};

// Takes one character off the text; a malformed sequence counts as one, as far as it is well begun.
std::uint32_t takeCharacter(std::string_view & text) {
    auto first = static_cast<unsigned char>(text[0]);
    text.remove_prefix(1);
    if (first < 0x80) return first;
    int more = first >= 0xC2 && first <= 0xDF   ? 1
               : (first & 0xF0) == 0xE0         ? 2
               : first >= 0xF0 && first <= 0xF4 ? 3
                                                : 0;
    if (!more) return kMalformed;
    // The second byte's range shuts out overlong forms, surrogates and what lies beyond 10FFFF.
    unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    std::uint32_t character = first & (0x3Fu >> more);
    for (; more > 0; more--) {
        auto next = text.empty() ? 0u : static_cast<unsigned char>(text[0]);
        if (next < low || next > high) return kMalformed;
        character = character << 6 | (next & 0x3F);
        text.remove_prefix(1);
        low = 0x80;
        high = 0xBF;
    }
    return character;
}

std::optional<char> byteOf(std::uint32_t character) {
    if (character < 0x80) return static_cast<char>(character);
    auto at = std::lower_bound(kByCharacter.begin(), kByCharacter.end(), character,
                               [](Pair pair, std::uint32_t wanted) { return pair.character < wanted; });
    if (at == kByCharacter.end() || at->character != character) return std::nullopt;
    return static_cast<char>(at->byte);
}

} // namespace

std::string toUtf8(std::string_view windows1250) {
    std::string utf8;
    utf8.reserve(windows1250.size());
    for (char c : windows1250) {
        auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8 += c;
            continue;
        }
        unsigned character = kUpperHalf[byte - 0x80];
        if (character < 0x800) {
            utf8 += static_cast<char>(0xC0 | character >> 6);
        } else {
            utf8 += static_cast<char>(0xE0 | character >> 12);
            utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        }
        utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
    return utf8;
}

std::string fromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) text += byteOf(takeCharacter(utf8)).value_or('?');
    return text;
}

bool fitsWindows1250(std::string_view utf8) {
    while (!utf8.empty())
        if (!byteOf(takeCharacter(utf8))) return false;
    return true;
}

std::string upperWindows1250(std::string_view windows1250) {
    std::string upper(windows1250);
    for (char & c : upper) c = static_cast<char>(kUpperCase[static_cast<unsigned char>(c)]);
    return upper;
}

} // namespace platform
