#pragma once

// What a cache of loaded media can hold: a file name, and whether its contents are in memory. The base of
// pictures, animations and sounds. Main thread.

#include "core/CXObject.h"

class CFileResolver : public CXObject {
public:
    virtual void setFilename(const CXString & name) { fileName_ = name; }
    virtual CXString getFileName() { return fileName_; }
    virtual bool isLoaded() { return loaded_; }
    // Whether the contents are to be let go of once they were used.
    virtual void toRelease(bool wanted) { toRelease_ = wanted; }
    virtual bool isToRelease() { return toRelease_; }

    // The cache is about to delete this resource: media classes stop playing, release pixels or sound and
    // leave the screen here.
    virtual void retire() {}

protected:
    void load() { loaded_ = true; }
    void release() { loaded_ = false; }
    void log(const char * text, bool toDebugger);

private:
    CXString fileName_;
    bool loaded_ = false;
    bool toRelease_ = false;
};
