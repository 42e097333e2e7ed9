#include "core/CXArray.h"

#include <utility>

void * CXArray::setAt(int i, void * item) {
    if (i < 0 || i > kMaxIndex) return nullptr;
    growFor(i);
    if (i >= capacity_) doubleSize();
    need(i + 1);
    return std::exchange(items_[i], item);
}

void CXArray::insertAt(int i, void * item) {
    if (i < 0 || i > size) return;
    growFor(i);
    if (size == capacity_) doubleSize();
    openToTheEnd(i);
    items_[i] = item;
    size++;
}

bool CXArray::containsString(const CXString & text) {
    return std::any_of(begin(), end(), [&](void * item) {
        return static_cast<CXObject *>(item)->toString().equalsIgnoreCase(text);
    });
}

CXString * CXArray::stringAt(int i) {
    return i >= 0 && i < size ? static_cast<CXString *>(items_[i]) : nullptr;
}

CXObject * CXArray::clone() {
    auto * copy = new CXArray(capacity_, loadFactor_);
    for (void * item : *this) copy->add(item);
    return copy;
}
