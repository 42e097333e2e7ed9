#pragma once

// What stands in folders of the machine, kept from one question to the next. A listing is good as long as
// the folder's time of change is the one it was read at. Any thread may ask.

#include "platform/thread/Mutex.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unordered_map>
#include <vector>

namespace platform {

class FolderListings {
public:
    // The name that stands in the folder (a machine path) and equals this one but for the case, the very
    // same one if there is; empty when there is none. Names are Windows-1250, here and below.
    std::string find(const std::string & folder, std::string_view name);
    // All names that Windows can hold, without "." and "..", in the order of their upper-cased forms.
    std::vector<std::string> names(const std::string & folder);
    // The folder was changed by ourselves.
    void forget(const std::string & folder);

private:
    struct Entry {
        std::string upper, name;
    };
    struct Listing {
        dev_t device = 0;
        ino_t inode = 0;
        std::int64_t changed = 0; // nanoseconds, the folder's mtime when it was read
        bool settled = false;     // a later change is sure to show another mtime
        std::vector<Entry> entries;
    };

    const Listing & listing(const std::string & folder) REQUIRES(mutex_);

    Mutex mutex_;
    std::unordered_map<std::string, Listing> listings_ GUARDED_BY(mutex_);
};

} // namespace platform
