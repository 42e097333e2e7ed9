#include "graphics/CValidationQuene.h"

void CValidationQuene::add(CGraphicsObject * object, int priority, int spare) {
    auto * element = new CValidationElement(object, priority);
    element->spare = spare;
    add(element);
}

int CValidationQuene::getIndex(CGraphicsObject * object) {
    for (int i = 0; i < size; i++)
        if (element(i)->object == object) return i;
    return -1;
}

CValidationElement * CValidationQuene::find(CGraphicsObject * object) {
    int i = getIndex(object);
    return i < 0 ? nullptr : element(i);
}

void CValidationQuene::remove(CGraphicsObject * object) {
    int i = getIndex(object);
    if (i < 0) return;
    delete element(i);
    removeAt(i);
    if (cursor_ >= i) cursor_--; // the next step meets what stood behind
}

void CValidationQuene::removeAll() {
    for (int i = 0; i < size; i++) delete element(i);
    CSortedVector::removeAll();
    cursor_ = -1;
}

void CValidationQuene::clearMarks() {
    for (int i = 0; i < size; i++) element(i)->mark = false;
}

CValidationElement * CValidationQuene::atCursor() {
    return cursor_ >= 0 && cursor_ < size ? element(cursor_) : nullptr;
}

CValidationElement * CValidationQuene::first() {
    cursor_ = 0;
    return atCursor();
}

CValidationElement * CValidationQuene::next() {
    if (cursor_ < size) cursor_++;
    return atCursor();
}

CValidationElement * CValidationQuene::prev() {
    if (cursor_ >= 0) cursor_--;
    return atCursor();
}
