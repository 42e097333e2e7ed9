#pragma once

// Reads the definition of an application and makes the tree of scenes. Holds the pools and the runners of
// the game while it lives. Owned by CApplication; what it made belongs to the script application.

#include "core/CXVector.h"

#include <vector>

class CMC_Application;
class CMC_Scene;
class CMElement;
class CWindow;

class CMC_StructureParser : public CXObject {
public:
    CMC_StructureParser(CWindow * window, const CXString & fileName);
    ~CMC_StructureParser() override;

    CXObject * get(const CXString & name); // the first object of that name, or null
    CMC_Application * getApplication() { return application_; }
    CXVector * getObjects() { return &objects_; } // in order of creation
    // The scenes that a key of an element names, in its order; unknown names are passed over.
    std::vector<CMC_Scene *> listed(CMElement * element, const CXString & key);

private:
    void load(const CXString & fileName);

    CWindow * window_;
    CMC_Application * application_ = nullptr;
    CXVector objects_{101, 0.75F};
};
