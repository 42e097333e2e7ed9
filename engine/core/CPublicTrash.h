#pragma once

// Objects that are deleted some time after the code that used them has returned: on the window's timer,
// every 10,000 ms. Owns what it holds.

#include "core/CTimerNotificator.h"
#include "core/CXVector.h"

class CPublicTrash : public CXVector, public CTimerNotificator {
public:
    static constexpr int kInterval = 10000; // milliseconds

    CPublicTrash() : CXVector(101, 0.75F) {}
    ~CPublicTrash() override { flush(); }

    void onTimer(int) override { flush(); }

private:
    void flush();
};
