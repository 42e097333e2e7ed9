#pragma once

// A list of untyped pointers, none owned.

#include "core/PointerList.h"

class CXArray : public PointerList<void> {
public:
    static constexpr int kMaxIndex = 1 << 26; // for setAt: more is a mistake, not a list

    CXArray(int capacity, float loadFactor) : PointerList(capacity, loadFactor) {}

    using PointerList::add;
    virtual void add(CXArray * other) { append(*other); }
    // The old item, or null when i can't be reached. Grows until i fits; the size stays, so a place behind
    // it can be read by operator[] only.
    virtual void * setAt(int i, void * item);
    virtual void insertAt(int i, void * item); // i in 0..size
    // The items are script values; compares their texts without case.
    virtual bool containsString(const CXString & text);
    virtual CXString * stringAt(int i); // the item as a string; null outside
    CXObject * clone() override;        // the same items
};
