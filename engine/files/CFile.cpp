#include "files/CFile.h"

#include "app/CWindow.h"
#include "files/CBigFileIfc.h"
#include "files/CFolder.h"
#include "files/CLanguageOSVer.h"
#include "files/CPath.h"
#include "platform/World.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <initializer_list>

namespace {

constexpr int kLineArea = 10240; // bytes that one line may take, its end included

std::unique_ptr<CBigFileIfc> bigFile;

platform::FileSystem & disk() { return *platform::world().files; }

std::string modeString(int mode) {
    std::string text = mode & CFile::kRead ? "r" : "w";
    if (mode & CFile::kUpdate) text += '+';
    if (mode & CFile::kText)
        text += 't';
    else if (mode & CFile::kBinary)
        text += 'b';
    return text;
}

// A name as an absolute path below the current directory of the machine; archives don't count here.
CXString absolute(CWindow * window, const CXString & name) {
    CXString resolved = CPath::resolveFileName(window, name);
    if (resolved.GetAt(1) == ':') return resolved;
    CXString path(disk().currentDirectory());
    path += '\\';
    path += resolved;
    return path;
}

std::unique_ptr<platform::File> tryOpen(const CXString & path, const char * mode) {
    return disk().open(std::string(path.view()), mode);
}

bool opens(const CXString & path) { return tryOpen(path, "rb") != nullptr; }

CXString movedTo(const CXString & root, const CXString & path) {
    for (const CXString & folder : {CFolder::DATA_FOLDER, CFolder::COMMON_FOLDER})
        if (int i = path.indexOf(folder); i >= 0) return root + path.Right(i);
    CXString upper = path;
    upper.Upper();
    if (int i = upper.indexOf(CFolder::WAVS_FOLDER); i >= 0) return root + upper.Right(i);
    return path;
}

} // namespace

CBigFileIfc * (*CFile::bigFileOpener)(const CXString & name) = nullptr;

CFile::CFile(CWindow * window, const CXString & name, int mode) {
    setErrorCode(CFile::Open(window, name, mode));
}

CFile::~CFile() { CFile::Close(); }

int CFile::Open(CWindow * window, const CXString & name, int mode) {
    CFile::Close();
    window_ = window;
    path_ = absolute(window, name);
    mode_ = mode;
    setErrorCode(0);
    const std::string modes = modeString(mode);
    auto attempt = [&](const CXString & path) {
        handle_ = tryOpen(path, modes.c_str());
        if (handle_) opened_ = path;
        return handle_ != nullptr;
    };
    if (!window) {
        if (attempt(getLocalPath(path_)) || attempt(path_)) return 0;
    } else {
        CLanguageOSVer * language = window->getLangIfc();
        bool hdd = isHdd(path_);
        CXString first = hdd ? path_ : getLocalPath(path_);
        if (attempt(language->getLocalFileName(first)) || attempt(first)) return 0;
        CXString second = hdd ? getCDPath(path_) : path_;
        if (attempt(language->getLocalFileName(second)) || attempt(second)) return 0;
    }
    setErrorCode(kNotFound);
    return kNotFound;
}

int CFile::Length() {
    if (!handle_) return -1;
    std::int64_t here = handle_->tell();
    handle_->seek(0, SEEK_END);
    std::int64_t length = handle_->tell();
    handle_->seek(here, SEEK_SET);
    return static_cast<int>(std::min<std::int64_t>(length, INT32_MAX));
}

int CFile::Tell() {
    return handle_ ? static_cast<int>(std::min<std::int64_t>(handle_->tell(), INT32_MAX)) : 0;
}

int CFile::Seek(int offset, int whence) { return handle_ ? handle_->seek(offset, whence) : -1; }

int CFile::Read(void * to, int n) {
    return n < 1 || !handle_ ? 0 : static_cast<int>(handle_->read(to, static_cast<std::size_t>(n)));
}

int CFile::Write(const void * from, int n) {
    return n < 1 || !handle_ ? 0 : static_cast<int>(handle_->write(from, static_cast<std::size_t>(n)));
}

int CFile::Close() {
    if (handle_) handle_->flush();
    handle_.reset();
    opened_ = CXString();
    return LastError();
}

void CFile::GetLine(char * to, int size) {
    if (handle_ && size > 0) handle_->gets(to, size);
}

CXString CFile::getLine() {
    char area[kLineArea];
    return handle_ && handle_->gets(area, sizeof area) ? CXString(area) : CXString();
}

void CFile::putLine(const CXString & text) { CFile::Write(text.c_str(), text.getLength()); }

bool CFile::eof() { return !handle_ || handle_->eof(); }

CXString CFile::getPath(CWindow * window, const CXString & name) {
    CXString path = absolute(window, name);
    CXString local = getLocalPath(path);
    CLanguageOSVer * language = window->getLangIfc();
    for (const CXString & candidate :
         {language->getLocalFileName(local), language->getLocalFileName(path), local, path})
        if (opens(candidate)) return candidate;
    return {};
}

CXString CFile::getLocalPath(const CXString & path) { return movedTo(CWindow::rootPath, path); }

CXString CFile::getCDPath(const CXString & path) { return movedTo(CWindow::getCDPath(), path); }

int CFile::chDir(const CXString & path) {
    if (bigFile) return bigFile->ChDir(path);
    return disk().changeDirectory(std::string(path.view())) ? 0 : -1;
}

CXString CFile::getCurrentDirectory() {
    CXString path = bigFile ? bigFile->GetCurrentDirectoryA() : CXString(disk().currentDirectory());
    if (path.lastChar() != '\\') path += '\\';
    return path;
}

int CFile::getCurrentDirectory(int size, char * to) {
    CXString path = bigFile ? bigFile->GetCurrentDirectoryA() : CXString(disk().currentDirectory());
    if (size < 1) return 0;
    int length = std::min(path.getLength(), size - 1);
    std::memcpy(to, path.c_str(), static_cast<std::size_t>(length));
    to[length] = 0;
    return length;
}

int CFile::findFirst(const CXString & mask, platform::FindData & data) {
    if (bigFile) return bigFile->FindFirst(mask, data);
    bool wantsFolder = data.attrib & platform::FindData::kDirectory;
    int handle = disk().findFirst(std::string(mask.view()), data);
    if (handle == -1 || !wantsFolder) return handle;
    while (!(data.attrib & platform::FindData::kDirectory)) {
        if (disk().findNext(handle, data) == 0) continue;
        disk().findClose(handle);
        return -1;
    }
    return handle;
}

int CFile::findNext(int handle, platform::FindData & data) {
    return bigFile ? bigFile->FindNext(handle, data) : disk().findNext(handle, data);
}

void CFile::findClose(int handle) {
    if (!bigFile) disk().findClose(handle);
}

int CFile::fSeek(CFile * file, int offset, int whence) {
    return bigFile && file == bigFile->GetFile() ? bigFile->Seek(offset, whence) : file->Seek(offset, whence);
}

int CFile::fTell(CFile * file) {
    return bigFile && file == bigFile->GetFile() ? bigFile->Tell() : file->Tell();
}

bool CFile::dirExists(const CXString & path) {
    if (bigFile) return bigFile->DirExists(path);
    std::string before = disk().currentDirectory();
    if (!disk().changeDirectory(std::string(path.view()))) return false;
    disk().changeDirectory(before);
    return true;
}

bool CFile::fileExists(const CXString & path) { return bigFile ? bigFile->FileExists(path) : opens(path); }

bool CFile::isHdd(const CXString & path) {
    if (!path.IsString()) return false;
    return disk().driveType({path.GetAt(0), ':', '\\'}) == platform::DriveType::fixed;
}

bool CFile::openBigFile(const CXString & name) {
    closeBigFile();
    std::unique_ptr<CBigFileIfc> opened(bigFileOpener ? bigFileOpener(name) : nullptr);
    if (!opened || opened->LastError()) {
        CWindow::toLog("Big file " + name + " can't be opened\n", false);
        return false;
    }
    bigFile = std::move(opened);
    return true;
}

void CFile::closeBigFile() { bigFile.reset(); }

CFile * CFile::getBigFileHandle() { return bigFile ? bigFile->GetFile() : nullptr; }

CBigFileIfc * CFile::getBigFileIfc() { return bigFile.get(); }
