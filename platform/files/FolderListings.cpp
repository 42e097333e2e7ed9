#include "platform/files/FolderListings.h"

#include "platform/files/WindowsPath.h"
#include "platform/text/Windows1250.h"

#include <algorithm>
#include <dirent.h>
#include <sys/stat.h>
#include <time.h>
#include <tuple>

namespace platform {

namespace {

constexpr std::size_t kMostFolders = 512;

std::int64_t nanoseconds(const timespec & time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1000000000 + time.tv_nsec;
}

// Times of files go in steps of the kernel's tick. A folder that changed less than this long ago may change
// again and show the same time.
constexpr std::int64_t kSettling = 20'000'000; // nanoseconds

} // namespace

std::string FolderListings::find(const std::string & folder, std::string_view name) {
    const std::string upper = upperWindows1250(name);
    Lock lock(mutex_);
    const std::vector<Entry> & entries = listing(folder).entries;
    auto first =
        std::lower_bound(entries.begin(), entries.end(), upper,
                         [](const Entry & entry, const std::string & key) { return entry.upper < key; });
    if (first == entries.end() || first->upper != upper) return {};
    for (auto at = first; at != entries.end() && at->upper == upper; ++at)
        if (at->name == name) return at->name;
    return first->name;
}

std::vector<std::string> FolderListings::names(const std::string & folder) {
    Lock lock(mutex_);
    const std::vector<Entry> & entries = listing(folder).entries;
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const Entry & entry : entries) names.push_back(entry.name);
    return names;
}

void FolderListings::forget(const std::string & folder) {
    Lock lock(mutex_);
    listings_.erase(folder);
}

const FolderListings::Listing & FolderListings::listing(const std::string & folder) {
    struct stat now {};
    if (stat(folder.c_str(), &now) != 0 || !S_ISDIR(now.st_mode)) {
        listings_.erase(folder);
        static const Listing kNothing;
        return kNothing;
    }
    const std::int64_t changed = nanoseconds(now.st_mtim);
    if (auto known = listings_.find(folder); known != listings_.end()) {
        const Listing & listing = known->second;
        if (listing.settled && listing.changed == changed && listing.inode == now.st_ino &&
            listing.device == now.st_dev)
            return listing;
    }

    if (listings_.size() >= kMostFolders) listings_.clear();
    Listing & listing = listings_[folder];
    timespec clock{};
    clock_gettime(CLOCK_REALTIME, &clock);
    listing.device = now.st_dev;
    listing.inode = now.st_ino;
    listing.changed = changed;
    listing.settled = changed + kSettling < nanoseconds(clock);
    listing.entries.clear();
    if (DIR * stream = opendir(folder.c_str())) {
        while (const dirent * entry = readdir(stream)) {
            std::string_view utf8 = entry->d_name;
            if (utf8 == "." || utf8 == ".." || !fitsWindows1250(utf8)) continue;
            std::string name = fromUtf8(utf8);
            if (isWindowsName(name)) listing.entries.push_back({upperWindows1250(name), std::move(name)});
        }
        closedir(stream);
    }
    std::sort(listing.entries.begin(), listing.entries.end(), [](const Entry & a, const Entry & b) {
        return std::tie(a.upper, a.name) < std::tie(b.upper, b.name);
    });
    return listing;
}

} // namespace platform
