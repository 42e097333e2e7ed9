#include "script/Conversions.h"

#include "script/Notes.h"

namespace convert {

namespace {

// The one quotient that doesn't fit.
bool overflows(int a, int b) { return a == std::numeric_limits<int>::min() && b == -1; }

bool byZero(int b) {
    if (b == 0) notes::add(notes::Kind::divisionByZero, "the result is 0");
    return b == 0;
}

} // namespace

int divide(int a, int b) {
    if (byZero(b)) return 0;
    return overflows(a, b) ? a : a / b;
}

double divide(double a, double b) {
    if (b == 0.0) {
        notes::add(notes::Kind::divisionByZero, "the result is 0");
        return 0.0;
    }
    return a / b;
}

int remainder(int a, int b) {
    if (byZero(b)) return 0;
    return overflows(a, b) ? 0 : a % b;
}

} // namespace convert
