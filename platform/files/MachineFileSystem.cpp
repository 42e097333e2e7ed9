#include "platform/files/MachineFileSystem.h"

#include "platform/files/MachineFile.h"
#include "platform/text/Windows1250.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

// An open file of the machine, closed at the end of the block.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() { reset(-1); }
    Descriptor(const Descriptor &) = delete;
    Descriptor & operator=(const Descriptor &) = delete;

    operator int() const { return fd_; }
    int release() { return std::exchange(fd_, -1); }
    void reset(int fd) {
        if (fd_ >= 0) close(fd_);
        fd_ = fd;
    }

private:
    int fd_;
};

// Where the machine calls the root of drive C: "/", a Place has "".
const char * nonEmpty(const std::string & machine) { return machine.empty() ? "/" : machine.c_str(); }

std::string folderOf(const std::string & machine) {
    std::size_t slash = machine.rfind('/');
    return slash == std::string::npos || slash == 0 ? "/" : machine.substr(0, slash);
}

bool isFile(const std::string & machine) {
    struct stat info {};
    return stat(nonEmpty(machine), &info) == 0 && S_ISREG(info.st_mode);
}

bool isFolder(const std::string & machine) {
    struct stat info {};
    return stat(nonEmpty(machine), &info) == 0 && S_ISDIR(info.st_mode);
}

// Waits for nothing: a pipe without a writer mustn't hold the engine up.
int openQuickly(const std::string & machine, int flags) {
    return ::open(nonEmpty(machine), flags | O_CLOEXEC | O_NONBLOCK, 0666);
}

std::string realPath(const std::string & folder) {
    std::unique_ptr<char, decltype(&std::free)> real(realpath(folder.c_str(), nullptr), &std::free);
    return real ? real.get() : "";
}

std::string processFolder() {
    std::unique_ptr<char, decltype(&std::free)> here(getcwd(nullptr, 0), &std::free);
    return here ? here.get() : "/";
}

bool pour(int from, int to) {
    std::array<char, 65536> block{};
    for (;;) {
        ssize_t got = read(from, block.data(), block.size());
        if (got <= 0) return got == 0;
        for (ssize_t done = 0; done < got;) {
            ssize_t put = write(to, block.data() + done, static_cast<std::size_t>(got - done));
            if (put <= 0) return false;
            done += put;
        }
    }
}

} // namespace

MachineFileSystem::MachineFileSystem(const std::string & start, const std::string & disc) {
    if (!disc.empty() && isFolder(disc)) {
        disc_ = realPath(disc);
        hasDisc_ = !disc_.empty();
        if (disc_ == "/") disc_.clear();
    }
    changeDirectory(fromMachine(start.empty() ? processFolder() : start));
}

WindowsPath MachineFileSystem::current() {
    Lock lock(mutex_);
    return current_;
}

const std::string * MachineFileSystem::rootOf(char drive) const {
    static const std::string kRoot;
    if (drive == 'C') return &kRoot;
    return drive == 'D' && hasDisc_ ? &disc_ : nullptr;
}

std::optional<MachineFileSystem::Place> MachineFileSystem::exactPlace(const WindowsPath & path) const {
    const std::string * root = rootOf(path.drive);
    if (!root) return std::nullopt;
    std::string tail = toUtf8(path.tail);
    std::replace(tail.begin(), tail.end(), '\\', '/');
    return Place{*root + tail, root->size(), path.asFolder};
}

std::optional<MachineFileSystem::Place> MachineFileSystem::exactPlace(const std::string & path) {
    auto parsed = parseWindowsPath(path, current());
    return parsed ? exactPlace(*parsed) : std::nullopt;
}

void MachineFileSystem::match(Place & place, bool knownMissing) {
    std::string & path = place.machine;
    struct stat info {};
    std::size_t known = path.size(); // this much of the path exists as it is written
    if (knownMissing && known > place.root) known = path.rfind('/', known - 1);
    while (known > place.root && stat(path.substr(0, known).c_str(), &info) != 0)
        known = path.rfind('/', known - 1);
    while (known < path.size()) {
        std::size_t end = std::min(path.find('/', known + 1), path.size());
        std::string folder = known == 0 ? "/" : path.substr(0, known);
        std::string name = toUtf8(listings_.find(folder, fromUtf8(path.substr(known + 1, end - known - 1))));
        if (name.empty()) return;
        path.replace(known + 1, end - known - 1, name);
        known += 1 + name.size();
    }
}

std::optional<MachineFileSystem::Place> MachineFileSystem::find(const std::string & path) {
    auto place = exactPlace(path);
    if (place) match(*place);
    return place;
}

void MachineFileSystem::forgetFolderOf(const std::string & machine) { listings_.forget(folderOf(machine)); }

std::unique_ptr<File> MachineFileSystem::open(const std::string & path, const char * mode) {
    auto how = OpenMode::parse(mode);
    auto place = exactPlace(path);
    if (!how || !place || place->asFolder) return nullptr;

    Descriptor fd(openQuickly(place->machine, how->flags & ~O_CREAT));
    if (fd < 0) {
        if (errno != ENOENT) return nullptr;
        const std::string written = place->machine;
        match(*place, true);
        if (!how->creates() && place->machine == written) return nullptr;
        fd.reset(openQuickly(place->machine, how->flags));
        if (fd < 0) return nullptr;
        if (how->creates()) forgetFolderOf(place->machine);
    }
    struct stat info {};
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) return nullptr;
    std::FILE * stream = fdopen(fd, how->stream);
    if (!stream) return nullptr;
    fd.release();
    return std::make_unique<MachineFile>(stream, how->text);
}

std::string MachineFileSystem::currentDirectory() { return current().full(); }

bool MachineFileSystem::changeDirectory(const std::string & path) {
    auto parsed = parseWindowsPath(path, current());
    if (!parsed) return false;
    auto place = exactPlace(*parsed);
    if (!place) return false;
    match(*place);
    if (!isFolder(place->machine)) return false;
    parsed->tail = fromUtf8(place->machine.substr(place->root));
    std::replace(parsed->tail.begin(), parsed->tail.end(), '/', '\\');
    parsed->asFolder = false;
    Lock lock(mutex_);
    current_ = *parsed;
    return true;
}

bool MachineFileSystem::makeDirectory(const std::string & path) {
    auto place = find(path);
    if (!place || mkdir(nonEmpty(place->machine), 0777) != 0) return false;
    forgetFolderOf(place->machine);
    return true;
}

bool MachineFileSystem::removeDirectory(const std::string & path) {
    auto place = find(path);
    if (!place) return false;
    auto here = exactPlace(current());
    if (here && here->machine == place->machine) return false; // it is in use
    if (rmdir(nonEmpty(place->machine)) != 0) return false;
    listings_.forget(place->machine);
    forgetFolderOf(place->machine);
    return true;
}

bool MachineFileSystem::remove(const std::string & path) {
    auto place = find(path);
    if (!place || place->asFolder || !isFile(place->machine)) return false;
    if (unlink(place->machine.c_str()) != 0) return false;
    forgetFolderOf(place->machine);
    return true;
}

bool MachineFileSystem::replace(const std::string & from, const std::string & to) {
    auto source = find(from);
    auto target = find(to);
    if (!source || !target || source->asFolder || target->asFolder || !isFile(source->machine)) return false;
    {
        // The bytes must be on the disk before the name is, or a crash could leave an empty file under it.
        Descriptor written(openQuickly(source->machine, O_RDONLY));
        if (written >= 0) fsync(written);
    }
    if (rename(source->machine.c_str(), nonEmpty(target->machine)) != 0) return false;
    forgetFolderOf(source->machine);
    forgetFolderOf(target->machine);
    return true;
}

bool MachineFileSystem::copy(const std::string & from, const std::string & to, bool failIfExists) {
    auto source = find(from);
    auto target = find(to);
    if (!source || !target || source->asFolder || target->asFolder) return false;
    Descriptor in(openQuickly(source->machine, O_RDONLY));
    struct stat info {};
    struct stat before {};
    if (in < 0 || fstat(in, &info) != 0 || !S_ISREG(info.st_mode)) return false;
    const bool exists = stat(nonEmpty(target->machine), &before) == 0;
    if (exists && (failIfExists || !S_ISREG(before.st_mode))) return false;
    if (exists && before.st_dev == info.st_dev && before.st_ino == info.st_ino) return false; // onto itself

    Descriptor out(
        ::open(nonEmpty(target->machine), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, info.st_mode & 0777));
    if (out < 0) return false;
    forgetFolderOf(target->machine);
    bool whole = pour(in, out);
    if (whole) { // a copy keeps the time of its original
        const timespec times[2] = {info.st_atim, info.st_mtim};
        futimens(out, times);
    }
    if (close(out.release()) != 0) whole = false;
    if (!whole) unlink(target->machine.c_str());
    return whole;
}

int MachineFileSystem::findFirst(const std::string & mask, FindData & data) {
    auto path = parseWindowsPath(mask, current(), true);
    if (!path || path->asFolder || path->tail.empty()) return -1;
    const std::string wanted(path->lastName());
    Search search;
    if (wanted.find_first_of("*?") == std::string::npos) {
        auto place = exactPlace(*path);
        if (!place) return -1;
        match(*place);
        const std::size_t slash = place->machine.rfind('/');
        search.folder = place->machine.substr(0, slash);
        search.names.push_back(fromUtf8(place->machine.substr(slash + 1)));
        return begin(std::move(search), data);
    }

    path->tail.erase(path->folder().size());
    auto folder = exactPlace(*path);
    if (!folder) return -1;
    match(*folder);
    search.folder = folder->machine;
    search.names = listings_.names(nonEmpty(folder->machine));
    std::erase_if(search.names, [&](const std::string & name) { return !fitsMask(wanted, name); });
    std::reverse(search.names.begin(), search.names.end());
    if (!path->tail.empty())
        for (const char * dots : {"..", "."})
            if (fitsMask(wanted, dots)) search.names.push_back(dots);
    return begin(std::move(search), data);
}

int MachineFileSystem::begin(Search search, FindData & data) {
    auto slot = std::find(searches_.begin(), searches_.end(), std::nullopt);
    if (slot == searches_.end()) slot = searches_.insert(slot, std::nullopt);
    *slot = std::move(search);
    int handle = static_cast<int>(slot - searches_.begin()) + 1;
    if (findNext(handle, data) == 0) return handle;
    findClose(handle);
    return -1;
}

int MachineFileSystem::findNext(int handle, FindData & data) {
    if (handle < 1 || static_cast<std::size_t>(handle) > searches_.size()) return -1;
    auto & search = searches_[static_cast<std::size_t>(handle) - 1];
    if (!search) return -1;
    while (!search->names.empty()) {
        std::string name = std::move(search->names.back());
        search->names.pop_back();
        struct stat info {};
        if (stat((search->folder + "/" + toUtf8(name)).c_str(), &info) != 0)
            continue; // gone, or leads nowhere
        const bool isDirectory = S_ISDIR(info.st_mode);
        data.attrib = isDirectory ? FindData::kDirectory : FindData::kArchive;
        if (!isDirectory && !(info.st_mode & kAnyWrite)) data.attrib |= FindData::kReadOnly;
        data.timeWrite = info.st_mtim.tv_sec;
        data.size = isDirectory ? 0 : static_cast<std::uint64_t>(info.st_size);
        data.name = std::move(name);
        return 0;
    }
    return -1;
}

void MachineFileSystem::findClose(int handle) {
    if (handle >= 1 && static_cast<std::size_t>(handle) <= searches_.size())
        searches_[static_cast<std::size_t>(handle) - 1].reset();
}

DriveType MachineFileSystem::driveType(const std::string & root) {
    auto path = parseWindowsPath(root, WindowsPath{});
    const bool isRoot = root.size() >= 2 && root.size() <= 3 && root[1] == ':' && path && path->tail.empty();
    if (!isRoot || !rootOf(path->drive)) return DriveType::noRoot;
    return path->drive == 'C' ? DriveType::fixed : DriveType::optical;
}

std::string MachineFileSystem::toMachine(const std::string & path) {
    auto place = find(path);
    return place ? nonEmpty(place->machine) : "";
}

std::string MachineFileSystem::fromMachine(const std::string & utf8Path) {
    if (utf8Path.empty()) return {};
    std::string path = utf8Path[0] == '/' ? utf8Path : processFolder() + "/" + utf8Path;
    std::string windows = "C:";
    // A name that Windows can't hold gets a ? at least, and so finds nothing later.
    for (std::size_t at = 0; at < path.size();) {
        std::size_t end = std::min(path.find('/', at), path.size());
        std::string name = path.substr(at, end - at);
        at = end + 1;
        if (name.empty() || name == ".") continue;
        if (name != "..") {
            std::replace(name.begin(), name.end(), '\\', '?');
            windows += "\\" + fromUtf8(name);
        } else if (windows.size() > 2) {
            windows.erase(windows.rfind('\\'));
        }
    }
    return windows.size() == 2 ? windows + "\\" : windows;
}

} // namespace platform
