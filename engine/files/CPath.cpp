#include "files/CPath.h"

#include "app/CWindow.h"
#include "core/CStringTokenizer.h"
#include "files/CFile.h"
#include "platform/World.h"

namespace {

CXString resolved(const CXString & root, CXString name) {
    if (name.GetAt(0) == '$' || name.GetAt(0) == '&') name = root + name.Right(1);
    if (name.Find('?', 0) < 0) return name;
    CStringTokenizer tokens(name, "?");
    CXString folder = tokens.nextToken(), file = tokens.nextToken();
    if (!file.IsString()) {
        file = folder;
        folder = "";
    }
    return CPath::getFullPath(CFile::getCurrentDirectory(), folder, file);
}

} // namespace

CPath::CPath(CWindow * window) : window_(window), current_(CFile::getCurrentDirectory()) {}

CPath::CPath(CWindow * window, const CXString & name) : window_(window), name_(name) {
    if (int dot = name.FindLast('.', -1); dot >= 0) extension_ = name.Right(dot + 1);
}

bool CPath::isCD() {
    if (!current_.IsString()) return false;
    return platform::world().files->driveType({current_.GetAt(0), ':', '\\'}) == platform::DriveType::optical;
}

CXString CPath::SetExtension(const CXString & extension) {
    if (int dot = name_.Find('.', 0); dot >= 0) name_.left(dot + 1);
    name_ += extension;
    return name_;
}

CXString CPath::resolveFileName(CWindow *, const CXString & name) {
    return resolved(CWindow::getCDPath(), name);
}

CXString CPath::resolveFileNameEx(CWindow *, const CXString & name) {
    return resolved(CWindow::rootPath, name);
}

CXString CPath::getFullPath(const CXString & a, const CXString & b) {
    CXString path = a;
    if (path.IsString() && path.lastChar() != '\\') path += '\\';
    path += b;
    return path;
}

CXString CPath::getFullPath(const CXString & a, const CXString & b, const CXString & c) {
    CXString path = a;
    path += '\\';
    if (b.IsString()) {
        path += b;
        path += '\\';
    }
    path += c;
    return path;
}
