#pragma once

// How a value of one type reads as another: one place for each rule of the language.

#include "core/CXString.h"
#include "core/Text.h"
#include "core/Wrapping.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace convert {

// A double cut to 32 bits as the processor of the time did: what doesn't fit becomes the smallest number.
inline int truncated(double value) {
    if (!(value > -2147483649.0 && value < 2147483648.0)) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

// Half and more goes away from zero.
inline int rounded(double value) {
    int whole = truncated(value);
    double fraction = value - whole;
    if (std::fabs(fraction) < 0.5 || std::fabs(fraction) >= 1.0) return whole;
    return static_cast<int>(static_cast<std::uint32_t>(whole) + (value < 0 ? ~0U : 1U));
}

inline bool toBool(std::string_view text) { return text::equalIgnoringCase(text, "TRUE"); }

// Whole numbers wrap around at 32 bits.
using wrap::add;
using wrap::mul;
using wrap::sub;
// By zero gives 0 and a note in the log.
int divide(int a, int b);
int remainder(int a, int b);
double divide(double a, double b);

} // namespace convert
