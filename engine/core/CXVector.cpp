#include "core/CXVector.h"

#include <utility>

CXObject * CXVector::setAt(int i, CXObject * item) {
    return i >= 0 && i < size ? std::exchange(items_[i], item) : nullptr;
}

void CXVector::insertAt(int i, CXObject * item) {
    if (i < 0 || i > size) return;
    growFor(size);
    if (size == capacity_) doubleSize();
    open(i);
    items_[i] = item;
    size++;
}

void CXVector::copyInto(CXVector * other) {
    assert(other->capacity_ >= size);
    other->need(size);
    std::copy_n(items_, size, other->items_);
    other->size = size;
}

CXObject * CXVector::clone() {
    auto * copy = new CXVector(capacity_, loadFactor_);
    for (CXObject * item : *this) copy->add(item);
    return copy;
}
