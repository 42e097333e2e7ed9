#pragma once

// A list of texts that it owns; with the unique flag none stands in it twice (without regard to case).

#include "core/CXArray.h"

class CStringArray {
public:
    explicit CStringArray(bool unique) : unique_(unique) {}
    CStringArray(const CStringArray &) = delete;
    CStringArray & operator=(const CStringArray &) = delete;
    virtual ~CStringArray() { removeAll(); }

    virtual void add(const CXString & text);
    virtual void remove(const CXString & text); // all that are exactly equal
    virtual void removeAll();
    virtual bool contains(const CXString & text);
    virtual int getSize() { return strings_.size; }
    CXString * stringAt(int i) { return strings_.stringAt(i); } // null outside

private:
    CXArray strings_{101, 0.75F}; // of CXString, owned
    bool unique_;
};
