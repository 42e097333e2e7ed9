#pragma once

// The machine's own files under Windows names.

#include "platform/files/FileSystem.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace platform {

class MachineFileSystem : public FileSystem {
public:
    // Folders of the machine: where to start (the process's current one when empty), and what stands on drive
    // D: (none when empty).
    MachineFileSystem(const std::string & currentDirectory, const std::string & disc);

    const char * name() const override { return "machine"; }
    std::unique_ptr<File> open(const std::string & path, const char * mode) override;
    std::string currentDirectory() override;
    bool changeDirectory(const std::string & path) override;
    bool makeDirectory(const std::string & path) override;
    bool removeDirectory(const std::string & path) override;
    bool remove(const std::string & path) override;
    bool replace(const std::string & from, const std::string & to) override;
    bool copy(const std::string & from, const std::string & to, bool failIfExists) override;
    int findFirst(const std::string & mask, FindData & data) override;
    int findNext(int handle, FindData & data) override;
    void findClose(int handle) override;
    DriveType driveType(const std::string & root) override;
    std::string toMachine(const std::string & path) override;
    std::string fromMachine(const std::string & utf8Path) override;

private:
    // A place: a drive and the names below its root, Windows-1250.
    struct Place {
        char drive = 'C';
        std::vector<std::string> names;
        bool sound = false; // there is such a drive and every name is a legal one
    };
    struct Listing {
        std::int64_t changed;                               // the folder's, in nanoseconds
        std::unordered_map<std::string, std::string> names; // upper-cased to the machine's own
    };
    struct Search {
        std::vector<FindData> hits;
        std::size_t next = 0;
        bool open = false;
    };

    Place placeOf(std::string_view path, bool lastIsMask = false) const;
    std::string rootOf(char drive) const;
    std::string machineName(const Place & place);
    std::string machineNameOf(const std::string & path); // with the lock
    std::string found(const std::string & folder, const std::string & name);
    void forget(const std::string & machinePath); // the listing of its folder

    std::mutex lock_;  // guards all below: files are opened from more than one thread
    std::string disc_; // UTF-8, without a slash at the end
    Place current_;
    std::unordered_map<std::string, Listing> listings_; // by folder of the machine
    std::vector<Search> searches_;
};

} // namespace platform
