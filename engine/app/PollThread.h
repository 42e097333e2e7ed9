#pragma once

// Calls a function every 16 ms on a thread of its own, except while it is suspended. Ended by the
// destructor, which waits for it.

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class PollThread {
public:
    static constexpr int kPeriod = 16; // milliseconds

    explicit PollThread(std::function<void()> poll);
    ~PollThread();
    PollThread(const PollThread &) = delete;
    PollThread & operator=(const PollThread &) = delete;

    void suspend(bool on);

private:
    void loop();

    std::function<void()> poll_;
    std::mutex lock_; // guards the flags
    std::condition_variable changed_;
    bool suspended_ = false;
    bool ended_ = false;
    std::thread thread_;
};
