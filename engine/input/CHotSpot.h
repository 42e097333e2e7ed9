#pragma once

// A place on the screen that takes mouse events, by priority.

#include "core/CXObject.h"

class CHotSpot : public CXObject {
public:
    // Only hot spots between these, both included, are hit.
    static void setMinPriority(int priority) { minPriority = priority; }
    static void setMaxPriority(int priority) { maxPriority = priority; }
    static int getMinPriority() { return minPriority; }
    static int getMaxPriority() { return maxPriority; }

private:
    static int minPriority;
    static int maxPriority;
};
