#pragma once

// What the lists of a definition share: entries found by name in a walk from the front, so that of two of
// one name the first counts, and a remove that deletes.

#include "core/CXVector.h"

template <class Entry>
class CMList : public CXVector {
public:
    Entry * getAt(int index) { return static_cast<Entry *>(at(index)); }
    Entry * get(const CXString & name) const { // null when there is none
        for (int i = 0; i < size; i++)
            if (auto * entry = static_cast<Entry *>(items_[i]); entry->getName() == name) return entry;
        return nullptr;
    }
    using CXVector::contains;
    bool contains(const CXString & name) const { return get(name) != nullptr; }
    // Takes an entry out and deletes it; another object stays alone.
    void remove(CXObject * entry) override {
        int i = find(entry);
        if (i == -1) return;
        removeAt(i);
        delete entry;
    }

protected:
    CMList() : CXVector(101, 0.75F) {}
    // Deletes all entries; the list still holds their pointers.
    void release() {
        for (CXObject * entry : *this) delete entry;
    }
};
