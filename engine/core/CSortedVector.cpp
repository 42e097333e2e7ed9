#include "core/CSortedVector.h"

void CSortedVector::add(CXObject * object) {
    int i = 0;
    while (i < size && items_[i]->compare(object) <= 0) i++;
    if (i == size)
        CXVector::add(object);
    else
        insertAt(i, object);
}
