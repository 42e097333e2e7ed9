#pragma once

// The machine's files. A name that exists just as it is written costs no look into a folder; any other is
// matched folder by folder from the first part that differs.

#include "platform/files/FileSystem.h"
#include "platform/files/FolderListings.h"
#include "platform/files/WindowsPath.h"
#include "platform/thread/Mutex.h"

#include <optional>
#include <vector>

namespace platform {

class MachineFileSystem : public FileSystem {
public:
    // Folders of the machine: the one to start in (the process's own when empty; "C:\" when it can't be named
    // or isn't there) and the one that is drive D: (none when empty or missing).
    explicit MachineFileSystem(const std::string & start = {}, const std::string & disc = {});

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
    // A path on the machine. Its first bytes are the drive's root, which is matched as it is.
    struct Place {
        std::string machine;
        std::size_t root = 0;
        bool asFolder = false;
    };
    struct Search {
        std::string folder;             // machine path
        std::vector<std::string> names; // Windows-1250, from the last one to the first
    };

    WindowsPath current();
    // The machine's folder shown as a drive, without a slash at the end ("" is "/"); null for no drive.
    const std::string * rootOf(char drive) const;
    std::optional<Place> exactPlace(const WindowsPath & path) const;
    std::optional<Place> exactPlace(const std::string & path);
    // Turns the names that exist into the machine's spelling; those behind the first that doesn't stay.
    void match(Place & place, bool knownMissing = false);
    // Both of the above; nothing for a text that isn't a path of the machine.
    std::optional<Place> find(const std::string & path);
    void forgetFolderOf(const std::string & machine);
    int begin(Search search, FindData & data);

    std::string disc_;
    bool hasDisc_ = false;
    Mutex mutex_;
    WindowsPath current_ GUARDED_BY(mutex_); // open() reads it from any thread
    FolderListings listings_;
    std::vector<std::optional<Search>> searches_; // the handle is the index plus 1
};

} // namespace platform
