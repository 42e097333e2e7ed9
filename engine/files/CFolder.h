#pragma once

// A walk through a tree of folders whose sub-folders are told apart by their first letter, and the names of
// the data folders. It works through the current directory, which it changes. Main thread.

#include "core/CXObject.h"

class CWindow;
class CXArray;

class CFolder : public CXObject {
public:
    // Folders of a data root.
    static const CXString DATA_FOLDER;   // definitions and graphics
    static const CXString WAVS_FOLDER;   // sound
    static const CXString SFX_FOLDER;    // sound effects
    static const CXString COMMON_FOLDER; // shared classes and media

    explicit CFolder(CWindow * window); // in the current directory
    // Changes into the path; an empty one stays. When there is no such folder the error code is 2000, and no
    // search finds anything.
    CFolder(CWindow * window, const CXString & path);
    CFolder(const CFolder &) = delete;
    CFolder & operator=(const CFolder &) = delete;
    ~CFolder() override; // the current directory stays where it is

    // The first name that fits the mask, which begins a search; empty when there is none.
    virtual CXString GetFolderName(const CXString & mask); // a folder's
    virtual CXString GetFileName(const CXString & mask);   // anything's
    // The next name of the search, whatever it is; empty at the end.
    virtual CXString GetNextFileName();

    const CXString & getPath() const { return current_; } // no backslash at its end
    const CXString & getType() const { return type_; }    // of the folder last gone to
    void back();                                          // to where this object was made
    void GoStart();
    void GoUp();
    // Into the folder whose name, up to a full stop, is the letter number i ("A" is 0). What follows its last
    // full stop is its type: behind a "+" the whole text, else the first character. Whether there is one.
    bool GoTo(int i);

    static bool IsDirectory(const CXString & path);
    static int GetSize(const CXString & name); // bytes, 0 for no file
    // New CXArray of new CXString, one a hit ("." and ".." too), given back with releaseFilesList.
    CXArray * list(const CXString & mask);
    static void releaseFilesList(CXArray * list);

private:
    CXString begin(const CXString & mask, unsigned attrib);
    void endSearch();

    CXString start_;
    CXString current_;
    CXString type_;
    CXString before_; // where this object was made
    int search_ = -1; // handle, -1 when none runs
};
