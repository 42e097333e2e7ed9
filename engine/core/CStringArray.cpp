#include "core/CStringArray.h"

void CStringArray::add(const CXString & text) {
    if (unique_ && contains(text)) return;
    strings_.add(new CXString(text));
}

void CStringArray::remove(const CXString & text) {
    const CXString wanted = text; // the argument may be one of the strings that go
    for (int i = strings_.size; i-- > 0;) {
        CXString * each = strings_.stringAt(i);
        if (*each != wanted) continue;
        strings_.removeAt(i);
        delete each;
    }
}

void CStringArray::removeAll() {
    for (int i = 0; i < strings_.size; i++) delete strings_.stringAt(i);
    strings_.removeAll();
}

bool CStringArray::contains(const CXString & text) {
    for (int i = 0; i < strings_.size; i++)
        if (strings_.stringAt(i)->equalsIgnoreCase(text)) return true;
    return false;
}
