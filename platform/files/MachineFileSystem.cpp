#include "platform/files/MachineFileSystem.h"

#include "platform/files/MachineFile.h"
#include "platform/text/Windows1250.h"
#include "platform/text/WindowsNames.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestPath = 4095; // bytes that the machine takes

bool isDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' &&
           ((path[0] >= 'a' && path[0] <= 'z') || (path[0] >= 'A' && path[0] <= 'Z'));
}

char upperDrive(char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isSlash(char c) { return c == '\\' || c == '/'; }

bool status(const std::string & path, struct stat & to) {
    return !path.empty() && path.size() <= kLongestPath && ::stat(path.c_str(), &to) == 0;
}

bool isFolder(const std::string & path) {
    struct stat s {};
    return status(path, s) && S_ISDIR(s.st_mode);
}

std::string withoutSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path == "/" ? std::string() : path;
}

FindData dataOf(const std::string & name, const struct stat & s) {
    FindData data;
    data.name = name;
    if (S_ISDIR(s.st_mode)) {
        data.attrib = FindData::kDirectory;
    } else {
        data.attrib = FindData::kArchive;
        data.size = static_cast<std::uint64_t>(s.st_size);
    }
    if (!(s.st_mode & S_IWUSR)) data.attrib |= FindData::kReadOnly;
    data.timeWrite = s.st_mtime;
    return data;
}

} // namespace

MachineFileSystem::MachineFileSystem(const std::string & currentDirectory, const std::string & disc) {
    std::error_code error;
    if (!disc.empty()) disc_ = withoutSlash(fs::absolute(disc, error).lexically_normal().string());
    fs::path start =
        currentDirectory.empty() ? fs::current_path(error) : fs::absolute(currentDirectory, error);
    current_ = placeOf(fromMachine(start.lexically_normal().string()));
}

std::string MachineFileSystem::rootOf(char drive) const { return drive == 'D' ? disc_ : std::string(); }

MachineFileSystem::Place MachineFileSystem::placeOf(std::string_view path, bool lastIsMask) const {
    Place place;
    if (isDrive(path)) {
        place.drive = upperDrive(path[0]);
        path.remove_prefix(2);
        bool absolute = !path.empty() && isSlash(path[0]);
        if (!absolute && place.drive == current_.drive) place.names = current_.names;
    } else {
        place.drive = current_.drive;
        if (path.empty() || !isSlash(path[0])) place.names = current_.names;
    }
    place.sound = place.drive == 'C' || (place.drive == 'D' && !disc_.empty());
    while (!path.empty()) {
        auto end = std::ranges::find_if(path, isSlash);
        std::string_view name(path.begin(), end);
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (!place.names.empty()) place.names.pop_back();
            continue;
        }
        if (!isLegalName(name) && !(lastIsMask && path.empty())) place.sound = false;
        place.names.emplace_back(name);
    }
    return place;
}

// The machine's name of one name in a folder: itself when it is there, else the one that differs in case
// only, else itself again.
std::string MachineFileSystem::found(const std::string & folder, const std::string & name) {
    std::string own = toUtf8(name);
    std::string exact = folder + "/" + own;
    if (exact.size() <= kLongestPath && ::access(exact.c_str(), F_OK) == 0) return own;
    struct stat s {};
    if (!status(folder.empty() ? "/" : folder, s) || !S_ISDIR(s.st_mode)) return own;
    std::int64_t changed = static_cast<std::int64_t>(s.st_mtim.tv_sec) * 1000000000 + s.st_mtim.tv_nsec;
    auto place = listings_.find(folder);
    if (place == listings_.end() || place->second.changed != changed) {
        Listing listing{changed, {}};
        if (DIR * entries = ::opendir(folder.empty() ? "/" : folder.c_str())) {
            while (const dirent * entry = ::readdir(entries))
                if (fitsWindows1250(entry->d_name))
                    listing.names.try_emplace(upperName(fromUtf8(entry->d_name)), entry->d_name);
            ::closedir(entries);
        }
        place = listings_.insert_or_assign(folder, std::move(listing)).first;
    }
    auto hit = place->second.names.find(upperName(name));
    return hit == place->second.names.end() ? own : hit->second;
}

std::string MachineFileSystem::machineName(const Place & place) {
    if (!place.sound) return {};
    std::string path = rootOf(place.drive);
    for (const std::string & name : place.names) {
        path += "/" + found(path, name);
        if (path.size() > kLongestPath) return {};
    }
    return path.empty() ? "/" : path;
}

std::string MachineFileSystem::machineNameOf(const std::string & path) {
    return path.empty() || path.size() > kLongestPath ? std::string() : machineName(placeOf(path));
}

void MachineFileSystem::forget(const std::string & machinePath) {
    listings_.erase(machinePath.substr(0, machinePath.find_last_of('/')));
    listings_.erase(machinePath);
}

std::unique_ptr<File> MachineFileSystem::open(const std::string & path, const char * mode) {
    std::lock_guard hold(lock_);
    std::string_view wanted(mode);
    bool text = wanted.find('b') == std::string_view::npos;
    std::string own{wanted.substr(0, 1)};
    if (wanted.find('+') != std::string_view::npos) own += '+';
    std::string name = machineNameOf(path);
    if (name.empty() || isFolder(name)) return nullptr;
    std::FILE * stream = std::fopen(name.c_str(), (own + "b").c_str());
    if (!stream) return nullptr;
    if (own[0] != 'r') forget(name);
    return std::make_unique<MachineFile>(stream, text);
}

std::string MachineFileSystem::currentDirectory() {
    std::lock_guard hold(lock_);
    std::string path{current_.drive, ':'};
    for (const std::string & name : current_.names) path += "\\" + name;
    return current_.names.empty() ? path + "\\" : path;
}

bool MachineFileSystem::changeDirectory(const std::string & path) {
    std::lock_guard hold(lock_);
    if (path.empty()) return false;
    Place place = placeOf(path);
    std::string name = machineName(place);
    if (name.empty() || !isFolder(name)) return false;
    // Spelled as the machine has it.
    std::size_t root = rootOf(place.drive).size();
    place.names.clear();
    for (std::size_t i = root; i < name.size();) {
        std::size_t end = std::min(name.find('/', i + 1), name.size());
        if (end > i + 1) place.names.push_back(fromUtf8(std::string_view(name).substr(i + 1, end - i - 1)));
        i = end;
    }
    current_ = place;
    return true;
}

bool MachineFileSystem::makeDirectory(const std::string & path) {
    std::lock_guard hold(lock_);
    std::string name = machineNameOf(path);
    if (name.empty() || ::mkdir(name.c_str(), 0777) != 0) return false;
    forget(name);
    return true;
}

bool MachineFileSystem::removeDirectory(const std::string & path) {
    std::lock_guard hold(lock_);
    std::string name = machineNameOf(path);
    if (name.empty() || ::rmdir(name.c_str()) != 0) return false;
    forget(name);
    return true;
}

bool MachineFileSystem::remove(const std::string & path) {
    std::lock_guard hold(lock_);
    std::string name = machineNameOf(path);
    if (name.empty() || ::unlink(name.c_str()) != 0) return false;
    forget(name);
    return true;
}

bool MachineFileSystem::replace(const std::string & from, const std::string & to) {
    std::lock_guard hold(lock_);
    std::string old = machineNameOf(from), fresh = machineNameOf(to);
    if (old.empty() || fresh.empty() || isFolder(fresh)) return false;
    // What was written must be on the disk before the name is, or a crash could leave an empty file.
    if (int file = ::open(old.c_str(), O_RDONLY); file >= 0) {
        ::fsync(file);
        ::close(file);
    }
    if (::rename(old.c_str(), fresh.c_str()) != 0) return false;
    forget(old);
    forget(fresh);
    return true;
}

bool MachineFileSystem::copy(const std::string & from, const std::string & to, bool failIfExists) {
    std::lock_guard hold(lock_);
    std::string source = machineNameOf(from), target = machineNameOf(to);
    if (source.empty() || target.empty()) return false;
    auto existing = failIfExists ? fs::copy_options::none : fs::copy_options::overwrite_existing;
    std::error_code error;
    if (!fs::is_regular_file(source, error) || fs::equivalent(source, target, error)) return false;
    bool copied = fs::copy_file(source, target, existing, error);
    forget(target);
    return copied && !error;
}

int MachineFileSystem::findFirst(const std::string & mask, FindData & data) {
    std::lock_guard hold(lock_);
    if (mask.empty() || mask.size() > kLongestPath || isSlash(mask.back())) return -1;
    auto cut = std::find_if(mask.rbegin(), mask.rend(), [](char c) { return isSlash(c) || c == ':'; }).base();
    std::string wanted(cut, mask.end());
    Place place = placeOf(std::string(mask.begin(), cut) + ".");
    std::string folder = machineName(place);
    if (folder.empty() || wanted.empty()) return -1;

    Search search;
    if (DIR * entries = ::opendir(folder.c_str())) {
        while (const dirent * entry = ::readdir(entries)) {
            std::string_view own(entry->d_name);
            if ((own == "." || own == "..") && place.names.empty()) continue; // a drive's root has none
            struct stat s {};
            if (!fitsWindows1250(own) || !status(folder + "/" + std::string(own), s)) continue;
            std::string name = fromUtf8(own);
            if (fitsMask(wanted, name)) search.hits.push_back(dataOf(name, s));
        }
        ::closedir(entries);
    }
    auto special = [](const FindData & hit) { return hit.name == "." || hit.name == ".."; };
    std::ranges::sort(search.hits, [&](const FindData & a, const FindData & b) {
        if (special(a) != special(b)) return special(a);
        return upperName(a.name) < upperName(b.name);
    });
    if (search.hits.empty()) return -1;
    data = search.hits[0];
    search.next = 1;
    search.open = true;
    auto free = std::ranges::find(searches_, false, &Search::open);
    if (free == searches_.end()) free = searches_.emplace(searches_.end());
    *free = std::move(search);
    return static_cast<int>(free - searches_.begin());
}

int MachineFileSystem::findNext(int handle, FindData & data) {
    std::lock_guard hold(lock_);
    if (handle < 0 || static_cast<std::size_t>(handle) >= searches_.size()) return -1;
    Search & search = searches_[static_cast<std::size_t>(handle)];
    if (!search.open || search.next >= search.hits.size()) return -1;
    data = search.hits[search.next++];
    return 0;
}

void MachineFileSystem::findClose(int handle) {
    std::lock_guard hold(lock_);
    if (handle >= 0 && static_cast<std::size_t>(handle) < searches_.size())
        searches_[static_cast<std::size_t>(handle)] = {};
}

DriveType MachineFileSystem::driveType(const std::string & root) {
    if (!isDrive(root)) return DriveType::noRoot;
    switch (upperDrive(root[0])) {
    case 'C': return DriveType::fixed;
    case 'D': return disc_.empty() ? DriveType::noRoot : DriveType::optical;
    default: return DriveType::noRoot;
    }
}

std::string MachineFileSystem::toMachine(const std::string & path) {
    std::lock_guard hold(lock_);
    return machineNameOf(path);
}

std::string MachineFileSystem::fromMachine(const std::string & utf8Path) {
    std::string path = "C:" + fromUtf8(utf8Path);
    std::ranges::replace(path, '/', '\\');
    return path.size() == 2 ? "C:\\" : path;
}

} // namespace platform
