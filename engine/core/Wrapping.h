#pragma once

// Whole-number arithmetic that wraps around at 32 bits, for numbers that a script or a file may have chosen.

namespace wrap {

constexpr int add(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
constexpr int sub(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}
constexpr int mul(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}
constexpr int abs(int a) { return a < 0 ? sub(0, a) : a; }

} // namespace wrap
