#include "platform/text/WindowsNames.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Lower-case and upper-case letters behind the ASCII half.
constexpr std::pair<unsigned char, unsigned char> kLetters[] = {
    {0x9A, 0x8A}, {0x9C, 0x8C}, {0x9D, 0x8D}, {0x9E, 0x8E}, {0x9F, 0x8F}, {0xB3, 0xA3}, {0xB9, 0xA5},
    {0xBA, 0xAA}, {0xBE, 0xBC}, {0xBF, 0xAF}, {0xE0, 0xC0}, {0xE1, 0xC1}, {0xE2, 0xC2}, {0xE3, 0xC3},
    {0xE4, 0xC4}, {0xE5, 0xC5}, {0xE6, 0xC6}, {0xE7, 0xC7}, {0xE8, 0xC8}, {0xE9, 0xC9}, {0xEA, 0xCA},
    {0xEB, 0xCB}, {0xEC, 0xCC}, {0xED, 0xCD}, {0xEE, 0xCE}, {0xEF, 0xCF}, {0xF0, 0xD0}, {0xF1, 0xD1},
    {0xF2, 0xD2}, {0xF3, 0xD3}, {0xF4, 0xD4}, {0xF5, 0xD5}, {0xF6, 0xD6}, {0xF8, 0xD8}, {0xF9, 0xD9},
    {0xFA, 0xDA}, {0xFB, 0xDB}, {0xFC, 0xDC}, {0xFD, 0xDD}, {0xFE, 0xDE},
};

char upper(char c) {
    if (c >= 'a' && c <= 'z') return static_cast<char>(c - 'a' + 'A');
    if (static_cast<unsigned char>(c) < 0x80) return c;
    for (const auto & [small, large] : kLetters)
        if (small == static_cast<unsigned char>(c)) return static_cast<char>(large);
    return c;
}

// A search turns some marks of its mask into the wider ones of the old short names before it compares.
enum Mark : char {
    kDosStar = '<',     // any bytes, but no further than the last full stop
    kDosQuestion = '>', // one byte, or none at a full stop and at the end
    kDosDot = '"',      // a full stop, or nothing at the end
};

std::string searchMask(std::string_view mask) {
    if (mask == "*.*") return "*";
    std::string text(mask);
    for (std::size_t i = 0; i < text.size(); i++) {
        char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] == '?') text[i] = kDosQuestion;
        if (text[i] == '.' && (next == '?' || next == '*')) text[i] = kDosDot;
        if (text[i] == '*' && next == '.') text[i] = kDosStar;
    }
    return text;
}

// Both in upper case.
bool fits(std::string_view mask, std::string_view name) {
    while (!mask.empty()) {
        char wanted = mask[0];
        std::string_view rest = mask.substr(1);
        if (wanted == '*' || wanted == kDosStar) {
            std::size_t last = name.size();
            if (wanted == kDosStar && name.rfind('.') != std::string_view::npos) last = name.rfind('.');
            for (std::size_t i = 0; i <= last; i++)
                if (fits(rest, name.substr(i))) return true;
            return false;
        }
        if (wanted == kDosQuestion) {
            if (!name.empty() && name[0] != '.') name.remove_prefix(1);
        } else if (wanted == kDosDot) {
            if (!name.empty()) {
                if (name[0] != '.') return false;
                name.remove_prefix(1);
            }
        } else {
            if (name.empty() || name[0] != wanted) return false;
            name.remove_prefix(1);
        }
        mask = rest;
    }
    return name.empty();
}

} // namespace

std::string upperName(std::string_view name) {
    std::string text(name);
    std::ranges::transform(text, text.begin(), upper);
    return text;
}

bool fitsMask(std::string_view mask, std::string_view name) {
    // "NAME." asks for a name without a full stop, with or without a star before it.
    std::string wanted = upperName(searchMask(mask));
    if (wanted.ends_with('.')) {
        std::string bare = wanted.substr(0, wanted.size() - 1);
        if (bare.ends_with(kDosStar)) bare.back() = '*';
        if (name.find('.') == std::string_view::npos && fits(bare, upperName(name))) return true;
    }
    return fits(wanted, upperName(name));
}

bool isLegalName(std::string_view name) {
    if (name.empty()) return false;
    return std::ranges::all_of(name, [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 &&
               std::string_view("<>:\"/\\|?*").find(c) == std::string_view::npos;
    });
}

} // namespace platform
