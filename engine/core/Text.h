#pragma once

// Text rules that strings, keys and readers share: case of the Polish letters, numbers out of text.

#include <array>
#include <cstddef>
#include <string_view>

namespace text {

// The nine pairs of Polish letters in Windows-1250, upper case first.
inline constexpr unsigned char kPolish[][2] = {{0x8C, 0x9C}, {0x8F, 0x9F}, {0xA3, 0xB3},
                                               {0xA5, 0xB9}, {0xAF, 0xBF}, {0xC6, 0xE6},
                                               {0xCA, 0xEA}, {0xD1, 0xF1}, {0xD3, 0xF3}};

inline constexpr auto kUpper = [] {
    std::array<unsigned char, 256> table{};
    for (std::size_t i = 0; i < 256; i++) table[i] = static_cast<unsigned char>(i);
    for (unsigned char c = 'a'; c <= 'z'; c++) table[c] = static_cast<unsigned char>(c - 'a' + 'A');
    for (auto & pair : kPolish) table[pair[1]] = pair[0];
    return table;
}();

inline constexpr auto kLower = [] {
    std::array<unsigned char, 256> table{};
    for (std::size_t i = 0; i < 256; i++) table[i] = static_cast<unsigned char>(i);
    for (unsigned char c = 'A'; c <= 'Z'; c++) table[c] = static_cast<unsigned char>(c - 'A' + 'a');
    for (auto & pair : kPolish) table[pair[0]] = pair[1];
    return table;
}();

inline char upper(char c) { return static_cast<char>(kUpper[static_cast<unsigned char>(c)]); }
inline char lower(char c) { return static_cast<char>(kLower[static_cast<unsigned char>(c)]); }
inline bool isUpper(char c) { return kLower[static_cast<unsigned char>(c)] != static_cast<unsigned char>(c); }
inline bool isLower(char c) { return kUpper[static_cast<unsigned char>(c)] != static_cast<unsigned char>(c); }

bool equalIgnoringCase(std::string_view a, std::string_view b);

// atoi of the time: white space, a sign, digits; 0 without digits; more than 32 bits wrap around.
int toInt(std::string_view text);
// atof: white space, a sign, digits with a full stop and an exponent; 0 without digits.
double toDouble(std::string_view text);

// The text between blanks (and nothing but blanks) at both ends.
std::string_view trimBlanks(std::string_view text);

} // namespace text
