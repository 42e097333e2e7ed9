#pragma once

// Elements of a definition in their order. The list that a load gives owns them; the children of an element
// belong to that list too.

#include "script/CMList.h"

class CMElement;

class CMElements : public CMList<CMElement> {
public:
    // owner: whether the elements still in the list go with it.
    explicit CMElements(bool owner) : owner_(owner) {}
    ~CMElements() override {
        if (owner_) release();
    }

    bool isOwner() const { return owner_; }

private:
    bool owner_;
};

// An element holds such a list, so it comes behind; whoever asks the list for an entry needs it.
#include "script/CMElement.h" // IWYU pragma: keep
