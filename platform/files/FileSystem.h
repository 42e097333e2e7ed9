#pragma once

// Files and folders under Windows path names. Names are Windows-1250 bytes with backslashes (a slash does
// too) and match the machine's without regard to case: an exact match first, then the folder's listing. The
// machine's tree is drive C:, a fixed disk; D: is the disc, when one is mounted. The file system keeps the
// one current directory itself. Failure is a null, a false or -1; nothing is thrown. Main thread, but for
// open files, each of which belongs to one thread at a time, and open(), which any thread may call.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

// An open file, with the meaning of the C library's stream operations.
class File {
public:
    virtual ~File() = default; // closes
    virtual std::size_t read(void * to, std::size_t bytes) = 0;
    virtual std::size_t write(const void * from, std::size_t bytes) = 0;
    virtual int seek(std::int64_t offset, int whence) = 0; // 0 when it worked; whence 0, 1, 2
    virtual std::int64_t tell() = 0;
    virtual int flush() = 0;
    virtual bool eof() = 0; // true once a read has met the end
    // As fgets: up to size - 1 bytes through the first line feed, zero-ended. False when there was nothing.
    virtual bool gets(char * to, int size) = 0;
};

struct FindData {
    static constexpr unsigned kReadOnly = 0x01, kHidden = 0x02, kDirectory = 0x10, kArchive = 0x20;
    unsigned attrib = 0;
    std::int64_t timeWrite = 0; // seconds since 1970
    std::uint64_t size = 0;     // bytes, 0 for a folder
    std::string name;           // Windows-1250, without a folder
};

enum class DriveType { unknown = 0, noRoot = 1, removable = 2, fixed = 3, remote = 4, optical = 5 };

class FileSystem {
public:
    virtual ~FileSystem() = default;
    virtual const char * name() const = 0;

    // mode is fopen's: "rb", "r+b", "wb", "w+b", "ab" and the same with "t" or with neither letter, which is
    // text too. In text mode a read turns CR LF into LF; a write writes what it is given.
    virtual std::unique_ptr<File> open(const std::string & path, const char * mode) = 0;

    // Without a backslash at the end, except for a drive's root ("C:\").
    virtual std::string currentDirectory() = 0;
    virtual bool changeDirectory(const std::string & path) = 0;
    virtual bool makeDirectory(const std::string & path) = 0;   // one level; false if it exists
    virtual bool removeDirectory(const std::string & path) = 0; // only an empty one
    virtual bool remove(const std::string & path) = 0;          // a file
    // Renames a file over what stands under the new name, whole or not at all.
    virtual bool replace(const std::string & from, const std::string & to) = 0;
    virtual bool copy(const std::string & from, const std::string & to, bool failIfExists) = 0;

    // A search as the Windows C library's: mask is a path whose last name may hold * and ?; the hits come in
    // the order of their upper-cased names, "." and ".." first. -1 when there is none.
    virtual int findFirst(const std::string & mask, FindData & data) = 0;
    virtual int findNext(int handle, FindData & data) = 0; // 0, or -1 at the end
    virtual void findClose(int handle) = 0;

    // The drive of a root such as "C:\".
    virtual DriveType driveType(const std::string & root) = 0;

    // The machine's own name of a path, in UTF-8, whether it exists or not; empty when the path has no place
    // on the machine (an unknown drive, a name with a character that Windows names can't hold).
    virtual std::string toMachine(const std::string & path) = 0;
    // The Windows name of a path of the machine ("/home/a" is "C:\home\a").
    virtual std::string fromMachine(const std::string & utf8Path) = 0;
};

} // namespace platform
