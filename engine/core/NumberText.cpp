#include "core/NumberText.h"

#include <cmath>
#include <cstdio>

namespace number {

namespace {

constexpr int kDigits = 17; // that a double is told apart by

struct Decimal {
    bool minus = false;
    std::string digits; // without leading or trailing meaning: 0.DIGITS times ten to the power point
    int point = 0;      // digits before the full stop; negative for zeros behind it
};

Decimal decimal(double value) {
    Decimal d;
    d.minus = std::signbit(value);
    char area[40];
    std::snprintf(area, sizeof area, "%.*e", kDigits - 1, std::fabs(value));
    d.digits.push_back(area[0]);
    d.digits.append(area + 2, kDigits - 1);
    d.point = std::atoi(area + kDigits + 2) + 1;
    return d;
}

// Cuts to the first count digits, rounding a half up; a count below 0 leaves none.
void round(Decimal & d, int count) {
    if (count >= static_cast<int>(d.digits.size())) {
        d.digits.append(static_cast<std::size_t>(count) - d.digits.size(), '0');
        return;
    }
    if (count < 0) {
        d.digits.clear();
        return;
    }
    bool up = d.digits[static_cast<std::size_t>(count)] >= '5';
    d.digits.resize(static_cast<std::size_t>(count));
    if (!up) return;
    for (std::size_t i = d.digits.size(); i-- > 0;) {
        if (d.digits[i] != '9') {
            d.digits[i]++;
            return;
        }
        d.digits[i] = '0';
    }
    // All nines: one digit more before the full stop.
    d.digits.insert(d.digits.begin(), '1');
    d.point++;
}

// What has no digits prints with the marks of the time.
std::string unusual(double value) {
    if (std::isinf(value)) return value < 0 ? "-1.#INF0" : "1.#INF0";
    return std::signbit(value) ? "-1.#IND0" : "1.#QNAN";
}

} // namespace

std::string fiveDecimals(double value) {
    if (!std::isfinite(value)) return unusual(value);
    if (value == 0.0) return "0";
    Decimal d = decimal(value);
    round(d, d.point + 5);
    if (d.digits.empty()) return "0";
    std::string text = d.minus ? "-" : "";
    if (d.point > 0)
        return text + d.digits.substr(0, static_cast<std::size_t>(d.point)) + "." +
               d.digits.substr(static_cast<std::size_t>(d.point));
    return text + "0." + std::string(static_cast<std::size_t>(-d.point), '0') + d.digits;
}

std::string significant(double value, int digits) {
    if (!std::isfinite(value)) return unusual(value);
    std::string text = std::signbit(value) && value != 0.0 ? "-" : "";
    if (value == 0.0) return "0.";
    Decimal d = decimal(value);
    round(d, digits);
    d.digits.resize(static_cast<std::size_t>(digits));
    int magnitude = d.point - 1;
    d.digits.erase(d.digits.find_last_not_of('0') + 1);
    if (magnitude < -1 || magnitude > digits - 1) {
        char exponent[16];
        std::snprintf(exponent, sizeof exponent, "e%+04d", magnitude);
        return text + d.digits[0] + "." + d.digits.substr(1) + exponent;
    }
    if (d.point <= 0) return text + "0." + std::string(static_cast<std::size_t>(-d.point), '0') + d.digits;
    std::size_t point = static_cast<std::size_t>(d.point);
    if (d.digits.size() < point) d.digits.append(point - d.digits.size(), '0');
    return text + d.digits.substr(0, point) + "." + d.digits.substr(point);
}

} // namespace number
