#pragma once

// Path names: where a name of a definition points, and how paths are joined.

#include "core/CXObject.h"

class CWindow;

class CPath : public CXObject {
public:
    explicit CPath(CWindow * window); // over the current directory
    CPath(CWindow * window, const CXString & name);

    const CXString & getCurrentPath() const { return current_; }
    const CXString & getFileName() const { return name_; }
    const CXString & getExtension() const { return extension_; }
    CXString GetFullPath(const CXString & name) const { return getFullPath(current_, name); }
    CXString GetFullPath(const CXString & sub, const CXString & name) const {
        return getFullPath(current_, sub, name);
    }
    CXString resolveFileName(const CXString & name) const { return resolveFileName(window_, name); }
    virtual bool isCD(); // on an optical disc
    // Cuts the file name behind its first full stop, appends the text, returns the new name.
    CXString SetExtension(const CXString & extension);

    // "$" or "&" in front stands for the disk root, with Ex for the local root; "a?b" is b below the folder a
    // of the current directory.
    static CXString resolveFileName(CWindow * window, const CXString & name);
    static CXString resolveFileNameEx(CWindow * window, const CXString & name);
    // a, a backslash unless it is empty or ends in one, b.
    static CXString getFullPath(const CXString & a, const CXString & b);
    // a, a backslash in any case, b and a backslash unless b is empty, c.
    static CXString getFullPath(const CXString & a, const CXString & b, const CXString & c);

private:
    CWindow * window_; // not owned
    CXString name_;
    CXString extension_;
    CXString current_;
};
