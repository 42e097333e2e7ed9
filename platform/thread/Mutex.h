#pragma once

// A lock that clang's thread safety check knows. A field that it guards says so:
//     int count_ GUARDED_BY(mutex_) = 0;

#include <mutex>

#if defined(__clang__)
#define TARNOOK_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define TARNOOK_THREAD_ATTRIBUTE(x)
#endif

#define GUARDED_BY(lock) TARNOOK_THREAD_ATTRIBUTE(guarded_by(lock))
#define REQUIRES(lock) TARNOOK_THREAD_ATTRIBUTE(requires_capability(lock))

namespace platform {

// Waits on a condition take a std::condition_variable_any and the Mutex itself.
class TARNOOK_THREAD_ATTRIBUTE(capability("mutex")) Mutex {
public:
    void lock() TARNOOK_THREAD_ATTRIBUTE(acquire_capability()) { mutex_.lock(); }
    void unlock() TARNOOK_THREAD_ATTRIBUTE(release_capability()) { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

class TARNOOK_THREAD_ATTRIBUTE(scoped_lockable) Lock {
public:
    explicit Lock(Mutex & mutex) TARNOOK_THREAD_ATTRIBUTE(acquire_capability(mutex)) : mutex_(mutex) {
        mutex_.lock();
    }
    ~Lock() TARNOOK_THREAD_ATTRIBUTE(release_capability()) { mutex_.unlock(); }
    Lock(const Lock &) = delete;
    Lock & operator=(const Lock &) = delete;

private:
    Mutex & mutex_;
};

} // namespace platform
