#include "files/CFolder.h"

#include "core/CXArray.h"
#include "files/CFile.h"

#include <algorithm>
#include <cstdint>

const CXString CFolder::DATA_FOLDER = "Dane";
const CXString CFolder::WAVS_FOLDER = "WAVS";
const CXString CFolder::SFX_FOLDER = "Wavs\\Sfx";
const CXString CFolder::COMMON_FOLDER = "COMMON";

namespace {

constexpr int kLetters = 26;

CXString withoutBackslash(CXString path) {
    if (path.lastChar() == '\\') path.left(path.getLength() - 1);
    return path;
}

// A drive without its backslash would mean that drive's current directory.
int enter(const CXString & path) {
    bool root = !path.IsString() || path.lastChar() == ':';
    return CFile::chDir(root ? path + "\\" : path);
}

CXString typeOf(const CXString & name) {
    int dot = name.FindLast('.');
    if (dot < 0) return {};
    return name.GetAt(dot + 1) == '+' ? name.Right(dot + 2) : name.Mid(dot + 1, dot + 2);
}

} // namespace

CFolder::CFolder(CWindow *) : before_(CFile::getCurrentDirectory()) {
    start_ = current_ = withoutBackslash(before_);
}

CFolder::CFolder(CWindow * window, const CXString & path) : CFolder(window) {
    if (path.IsString() && CFile::chDir(path) != 0) setErrorCode(CFile::kNotFound);
    start_ = withoutBackslash(path.GetAt(0) == '\\' ? path : CFile::getCurrentDirectory());
    current_ = start_;
}

CFolder::~CFolder() { endSearch(); }

void CFolder::endSearch() {
    if (search_ != -1) CFile::findClose(search_);
    search_ = -1;
}

CXString CFolder::begin(const CXString & mask, unsigned attrib) {
    endSearch();
    if (LastError()) return {};
    platform::FindData data;
    data.attrib = attrib;
    search_ = CFile::findFirst(mask, data);
    return search_ == -1 ? CXString() : CXString(data.name);
}

CXString CFolder::GetFolderName(const CXString & mask) { return begin(mask, platform::FindData::kDirectory); }

CXString CFolder::GetFileName(const CXString & mask) { return begin(mask, 0); }

CXString CFolder::GetNextFileName() {
    platform::FindData data;
    if (search_ != -1 && CFile::findNext(search_, data) == 0) return CXString(data.name);
    endSearch();
    return {};
}

void CFolder::back() { CFile::chDir(before_); }

void CFolder::GoStart() {
    enter(start_);
    current_ = start_;
}

void CFolder::GoUp() {
    CFile::chDir("..");
    if (int i = current_.FindLast('\\'); i >= 0) current_.left(i);
}

bool CFolder::GoTo(int i) {
    if (i < 0 || i >= kLetters) return false;
    const char mask[] = {static_cast<char>('A' + i), '.', '*', 0};
    CXString name = GetFolderName(mask);
    endSearch();
    CXString folder = current_ + "\\" + name;
    if (!name.IsString() || enter(folder) != 0) return false;
    current_ = folder;
    type_ = typeOf(name);
    return true;
}

bool CFolder::IsDirectory(const CXString & path) {
    platform::FindData data;
    int handle = CFile::findFirst(path, data);
    if (handle == -1) return false;
    CFile::findClose(handle);
    return data.attrib & platform::FindData::kDirectory;
}

int CFolder::GetSize(const CXString & name) {
    platform::FindData data;
    int handle = CFile::findFirst(name, data);
    if (handle == -1) return 0;
    CFile::findClose(handle);
    return static_cast<int>(std::min<std::uint64_t>(data.size, INT32_MAX));
}

CXArray * CFolder::list(const CXString & mask) {
    auto * names = new CXArray(101, 0.75F);
    for (CXString name = GetFileName(mask); name.IsString(); name = GetNextFileName())
        names->add(new CXString(name));
    return names;
}

void CFolder::releaseFilesList(CXArray * list) { CXString::releaseToVector(list); }
