#pragma once

// A vector that keeps its objects in the order of their compare; equal ones in order of arrival.

#include "core/CXVector.h"

class CSortedVector : public CXVector {
public:
    explicit CSortedVector(int capacity) : CXVector(capacity, 0.75F) {}

    using CXVector::add;
    // Before the first element e with e->compare(object) > 0.
    void add(CXObject * object) override;
};
