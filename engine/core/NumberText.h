#pragma once

// How a floating-point number becomes text: digit for digit as the C library of the games' time wrote it,
// which rounds halves away from zero and knows 17 digits. For CXString.

#include <string>

namespace number {

// Five decimals, always: "1.50000", "-0.00100"; "0" for what has no digit left.
std::string fiveDecimals(double value);

// That many significant digits without trailing zeros, the full stop kept: "1.", "0.25", "1.5e+010".
std::string significant(double value, int digits);

} // namespace number
