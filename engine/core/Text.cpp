#include "core/Text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace text {

namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes white space and a sign off the front; true for a minus.
bool takeSign(std::string_view & text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
    bool minus = text.front() == '-';
    text.remove_prefix(1);
    return minus;
}

std::size_t digits(std::string_view text, std::size_t from) {
    while (from < text.size() && isDigit(text[from])) from++;
    return from;
}

} // namespace

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); i++)
        if (upper(a[i]) != upper(b[i])) return false;
    return true;
}

int toInt(std::string_view text) {
    bool minus = takeSign(text);
    std::uint32_t value = 0;
    for (char c : text) {
        if (!isDigit(c)) break;
        value = value * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return static_cast<int>(minus ? 0 - value : value);
}

double toDouble(std::string_view text) {
    bool minus = takeSign(text);
    std::size_t whole = digits(text, 0), end = whole;
    if (end < text.size() && text[end] == '.') {
        end = digits(text, whole + 1);
        if (end == 1) return 0.0; // a lone full stop
    }
    if (end == 0) return 0.0;
    std::size_t mantissa = end;
    bool minusExponent = false, exponentGiven = false;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t sign = end + 1;
        if (sign < text.size() && (text[sign] == '-' || text[sign] == '+')) sign++;
        std::size_t exponent = digits(text, sign);
        if (exponent > sign) {
            exponentGiven = true;
            minusExponent = text[end + 1] == '-';
            end = exponent;
        }
    }
    double value = 0.0;
    auto result = std::from_chars(text.data(), text.data() + end, value);
    // Out of range leaves the value alone. The exponent tells which end it passed; without one, whether a
    // digit that counts stands before the full stop.
    if (result.ec == std::errc::result_out_of_range) {
        bool tiny = exponentGiven ? minusExponent : text.substr(0, mantissa).find_first_not_of('0') >= whole;
        value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return minus ? -value : value;
}

std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

} // namespace text
