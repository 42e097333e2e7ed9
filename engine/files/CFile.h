#pragma once

// A file by its name in the game: found through the language variants and the two data roots. All data goes
// through it. One owner, one thread at a time.

#include "core/CXObject.h"
#include "platform/files/FileSystem.h"

#include <memory>

class CBigFileIfc;
class CWindow;

class CFile : public CXObject {
public:
    static constexpr int kNotFound = 2000; // the error code of a file that no candidate opened

    // Open modes, combined by OR; the engine's own calls use 9, 14, 17, 18 and 22.
    enum Mode { kRead = 1, kWrite = 2, kUpdate = 4, kText = 8, kBinary = 16 };

    CFile() = default;                                        // closed
    CFile(CWindow * window, const CXString & name, int mode); // opens; the result is in LastError()
    CFile(const CFile &) = delete;
    CFile & operator=(const CFile &) = delete;
    ~CFile() override;

    virtual int Length();                                          // -1 while closed
    virtual int Tell();                                            // 0 while closed
    virtual platform::File * GetHandle() { return handle_.get(); } // stays this object's
    virtual int Seek(int offset, int whence);
    // The window may be null: then the name is looked for below the local root and as it stands.
    virtual int Open(CWindow * window, const CXString & name, int mode);
    virtual int Read(void * to, int n); // the count moved; 0 for n below 1
    virtual int Write(const void * from, int n);
    virtual int Close(); // the error code
    virtual void GetLine(char * to, int size);
    virtual CXString getLine();                  // up to 10,239 bytes, its line feed included
    virtual void putLine(const CXString & text); // nothing added
    virtual bool eof();                          // true once a read has met the end, and while closed

    const CXString & getPathName() const { return path_; } // absolute, before roots and languages
    const CXString & getOpenedPath() const {
        return opened_;
    } // of the candidate that opened; empty while closed
    CWindow * getWindow() const { return window_; }

    // Where the file of that name stands; empty when nowhere. The window must not be null.
    static CXString getPath(CWindow * window, const CXString & name);
    // A path moved to the local root or to the disk root, by the first of the folder names that it holds.
    static CXString getLocalPath(const CXString & path);
    static CXString getCDPath(const CXString & path);

    static int chDir(const CXString & path); // 0 when it worked, else -1
    static CXString getCurrentDirectory();   // ends in a backslash
    // Into a buffer of size bytes, cut there; the length.
    static int getCurrentDirectory(int size, char * to);
    // A search; the caller sets the directory bit of data.attrib to ask for a folder. -1 when there is none.
    static int findFirst(const CXString & mask, platform::FindData & data);
    static int findNext(int handle, platform::FindData & data); // 0, or -1 at the end
    static void findClose(int handle);
    static int fSeek(CFile * file, int offset, int whence);
    static int fTell(CFile * file);
    static bool dirExists(const CXString & path);
    static bool fileExists(const CXString & path);
    static bool isHdd(const CXString & path); // on a fixed disk

    // The one open archive, which then answers for folders and existence. The opener is the archive's class:
    // it gives a new object, whose error code is set when the file is no archive.
    static CBigFileIfc * (*bigFileOpener)(const CXString & name);
    static bool openBigFile(const CXString & name);
    static void closeBigFile();
    static CFile * getBigFileHandle(); // null when none is open
    static CBigFileIfc * getBigFileIfc();

protected:
    CXString path_;
    int mode_ = 0;
    CWindow * window_ = nullptr; // not owned

private:
    CXString opened_;
    std::unique_ptr<platform::File> handle_; // null while closed
};
