#pragma once

// Random numbers for scripts, from the platform's one source.

#include "core/CXObject.h"

#include <span>

class CXRandom : public CXObject {
public:
    static constexpr int kMostValues = 10000;

    CXRandom(); // seeds the source from the time

    static int random(int n);           // 0..n-1; 0 for n = 0
    static int random(int from, int n); // from..from+n-1
    // That many values of random(from, n), or n - from for a count of 0; with unique none comes twice. The
    // result is shared and stands until the next call. Empty when more than kMostValues are asked for, or
    // more unique ones than there are.
    static std::span<const int> random_vector(int from, int n, int count, bool unique);

private:
    static int values_[kMostValues];
};
