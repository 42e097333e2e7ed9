#pragma once

// A cache of loaded media by file name, so that what many objects of a scene name is loaded once. Users are
// counted: whoever got or added a resource takes it back with remove(). The application owns one, each unit
// another that it adds to the application's. Main thread.

#include "core/CXArray.h"
#include "core/CXVector.h"

class CFileResolver;
class CWindow;

class CResourcesManager : public CXObject {
public:
    explicit CResourcesManager(CWindow * window);
    CResourcesManager(const CResourcesManager &) = delete;
    CResourcesManager & operator=(const CResourcesManager &) = delete;
    ~CResourcesManager() override; // flushes, and leaves the manager that it is a child of

    // Takes the resource over, under its present file name, with one user. insertAt: at the nearest place
    // that there is.
    void add(CFileResolver * resource);
    void insertAt(CFileResolver * resource, int i);
    // One user less; the last one's call deletes the resource and gives true. Looks at own resources only.
    bool remove(CFileResolver * resource);
    bool contains(CFileResolver * resource); // among its own
    // The resource of that name (without regard to case), here or else in the first child that knows it, with
    // one user more. Null when none is loaded.
    CFileResolver * get(const CXString & name);
    // Flushes and forgets the children, and deletes all resources whoever uses them.
    void flush();

    void add(CResourcesManager * child); // stays the caller's
    void remove(CResourcesManager * child);

    CWindow * getWindow() { return window_; }

private:
    struct Entry;

    int find(CFileResolver * resource);
    Entry * at(int i) { return static_cast<Entry *>(entries_[i]); }

    CXArray entries_{101, 0.75F};   // of Entry, owned
    CXVector children_{101, 0.75F}; // of CResourcesManager
    CResourcesManager * parent_ = nullptr;
    CWindow * window_;
};
