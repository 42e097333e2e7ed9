#pragma once

// Pixel objects in the order in which they are drawn: by priority, a lower one first, equal ones in order of
// arrival. The elements are owned, their objects aren't.

#include "core/CSortedVector.h"

class CGraphicsObject;

class CValidationElement : public CXObject {
public:
    CValidationElement(CGraphicsObject * object, int priority) : object(object), priority(priority) {}

    // 1 when the other is to come before this one.
    int compare(CXObject * other) override {
        return static_cast<CValidationElement *>(other)->priority < priority ? 1 : 0;
    }

    bool enabled = true;
    bool mark = false; // repainted in this pass
    CGraphicsObject * object;
    int priority;
    int spare = 0;
};

class CValidationQuene : public CSortedVector {
public:
    CValidationQuene() : CSortedVector(101) {}
    ~CValidationQuene() override { removeAll(); }

    using CSortedVector::add;
    virtual void add(CGraphicsObject * object, int priority, int spare);
    virtual CValidationElement * find(CGraphicsObject * object); // null when it isn't here
    virtual int getIndex(CGraphicsObject * object);              // -1 when it isn't here
    virtual void remove(CGraphicsObject * object);
    void removeAll() override;
    virtual void clearMarks();
    CValidationElement * element(int i) { return static_cast<CValidationElement *>(operator[](i)); }

    // The cursor; null behind either end.
    virtual CValidationElement * first();
    virtual CValidationElement * next();
    virtual CValidationElement * prev();

private:
    using CSortedVector::find;
    using CSortedVector::remove;
    CValidationElement * atCursor();

    int cursor_ = -1;
};
