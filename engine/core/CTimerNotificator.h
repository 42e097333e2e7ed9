#pragma once

// Who is told when a timer of CXTimer falls due.

class CTimerNotificator {
public:
    virtual ~CTimerNotificator() = default;
    virtual void onTimer(int id) = 0;
};
