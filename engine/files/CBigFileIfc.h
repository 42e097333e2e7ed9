#pragma once

// What CFile asks of the open archive, whose tree then stands for the folders of the disk.

#include "core/CXObject.h"
#include "platform/files/FileSystem.h"

class CFile;

class CBigFileIfc : public CXObject {
public:
    virtual int Seek(int offset, int whence) = 0;
    virtual int Seek(const CXString & name) = 0;    // to a file's first byte; its offset, -1 without one
    virtual int GetSize(const CXString & name) = 0; // bytes of that file
    virtual int Tell() = 0;
    virtual CFile * GetFile() = 0;
    virtual int FindFirst(const CXString & mask, platform::FindData & data) = 0;
    virtual int FindNext(int handle, platform::FindData & data) = 0;
    virtual CXString GetCurrentDirectoryA() = 0; // without a backslash at the end
    virtual int ChDir(const CXString & path) = 0;
    virtual bool DirExists(const CXString & path) = 0;
    virtual bool FileExists(const CXString & name) = 0;
};
