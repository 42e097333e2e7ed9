#include "core/CPublicTrash.h"

void CPublicTrash::flush() {
    // A destructor may throw away more; that goes in the same round.
    for (int i = 0; i < size; i++) delete at(i);
    removeAll();
}
