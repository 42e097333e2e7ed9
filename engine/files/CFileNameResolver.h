#pragma once

// The parts of a path name.

#include "core/CXArray.h"

class CFileNameResolver : public CXObject {
public:
    explicit CFileNameResolver(const CXString & path);
    CFileNameResolver(const CFileNameResolver &) = delete;
    CFileNameResolver & operator=(const CFileNameResolver &) = delete;
    ~CFileNameResolver() override;

    const CXString & getSource() const { return source_; }
    const CXString & getPath() const { return path_; }             // what stands before the file name
    const CXString & getFileName() const { return name_; }         // behind the last backslash
    const CXString & getPureFileName() const { return pureName_; } // up to its first full stop
    const CXString & getExtension() const { return extension_; }   // from there to the next one
    unsigned char getDrive() const { return drive_; }              // its letter, 0 when none is named
    // Of CXString, the drive ("C:") among them; they stay this object's.
    CXArray * getDirectories() { return &directories_; }

private:
    CXString source_;
    CXString path_;
    CXString name_;
    CXString pureName_;
    CXString extension_;
    unsigned char drive_ = 0;
    CXArray directories_{101, 0.75F}; // of CXString, owned
};
