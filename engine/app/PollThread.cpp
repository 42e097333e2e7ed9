#include "app/PollThread.h"

#include <chrono>
#include <utility>

PollThread::PollThread(std::function<void()> poll) : poll_(std::move(poll)), thread_([this] { loop(); }) {}

PollThread::~PollThread() {
    {
        std::lock_guard hold(lock_);
        ended_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void PollThread::suspend(bool on) {
    {
        std::lock_guard hold(lock_);
        suspended_ = on;
    }
    changed_.notify_all();
}

void PollThread::loop() {
    std::unique_lock hold(lock_);
    while (!ended_) {
        if (suspended_) {
            changed_.wait(hold);
            continue;
        }
        changed_.wait_for(hold, std::chrono::milliseconds(kPeriod), [this] { return ended_ || suspended_; });
        if (ended_ || suspended_) continue;
        hold.unlock();
        poll_();
        hold.lock();
    }
}
